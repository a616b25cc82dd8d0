-- Yeast Street and around, and the senders whom no address book knows.

INSERT INTO scene VALUES ('olive', '2026-05-16');
INSERT INTO said (at, who, says) VALUES
  ('10:30', 'olive', 'Dear Robin, this is Olive Pettibone from number 39. Have you seen the Colonel?'),
  ('10:31', 'me',    'Good morning Mrs. Pettibone! He is in our bed'),
  ('10:33', 'olive', 'Oh good. Is he wearing his tie?'),
  ('10:33', 'me',    'He is'),
  ('10:34', 'olive', 'Then it is a formal visit. Do not let him have the salmon. He has had salmon at mine, at number 37 and at the fire station.'),
  ('10:40', 'me',    'He is looking at Sam’s sandwich'),
  ('10:41', 'olive', 'What kind of sandwich?'),
  ('10:41', 'me',    'Salmon'),
  ('10:42', 'olive', 'God help you both.');
INSERT INTO unread (at, who, says) VALUES
  ('20:05', 'olive', 'Dear Robin, the Colonel is home. He smells of soup. Did he behave? Regards, Olive Pettibone, number 39');

INSERT INTO scene VALUES ('bakery', '2026-05-09');
INSERT INTO said (at, who, says) VALUES
  ('07:02', 'bakery', 'Crumb & Daughter here (Daughter speaking). You asked for a cake that says HAPPY 60TH. How many people?'),
  ('07:10', 'me',     'Around 40. And one cat.'),
  ('07:11', 'bakery', 'Is the cat eating cake'),
  ('07:11', 'me',     'You know the Colonel'),
  ('07:12', 'bakery', '41 then. Black Forest?'),
  ('07:13', 'me',     'How did you know??'),
  ('07:14', 'bakery', 'A man called Knut rang from Germany and said the word cake at me for eleven minutes'),
  ('07:15', 'me',     'I am so sorry'),
  ('07:16', 'bakery', 'Don’t be, he’s coming in to help with the cherries. Collect Sat 30 May, 8am, bring a strong friend');

INSERT INTO scene VALUES ('fiorenzo', '2026-05-14');
INSERT INTO said (at, who, says) VALUES
  ('23:01', 'fiorenzo', 'Caro Robin. I listen to the recording of Tuesday.'),
  ('23:02', 'me',       'And? 😬'),
  ('23:03', 'fiorenzo', 'There are forty-one bars. In thirty-eight of them somebody is a door.'),
  ('23:04', 'me',       'Mateo told me. It was a B flat'),
  ('23:05', 'fiorenzo', 'It was a B apartment. With the hinges.'),
  ('23:06', 'me',       'I will practise, Maestro'),
  ('23:07', 'fiorenzo', 'Bravo. And tell Zoë the accordion is forbidden until it has apologised.');

INSERT INTO scene VALUES ('vet', '2026-04-16');
INSERT INTO said (at, who, says) VALUES
  ('11:30', 'vet', 'Hello Robin, Dr. Mossgrove. You called about a tortoise in London who will not come down from things.'),
  ('11:31', 'me',  'Yes, my mother’s. Is it medical?'),
  ('11:35', 'vet', 'Is he otherwise cheerful?'),
  ('11:36', 'me',  'Insufferably'),
  ('11:37', 'vet', 'Then it is a hobby. No treatment. Perhaps a small helmet.');

-- In no address book.

INSERT INTO scene VALUES ('bank', '2026-05-11');
INSERT INTO said (at, who, says) VALUES
  ('12:15', 'bank', 'Puddle Bank: 204118 is your code. Never share it. Not even with us. Especially not with Gary.'),
  ('12:16', 'bank', 'Puddle Bank: You spent $61.20 at FLOUR POWER. This is your 9th visit this month. Are you all right?');
INSERT INTO scene VALUES ('bank', '2026-05-15');
INSERT INTO said (at, who, says) VALUES
  ('09:40', 'bank', 'Puddle Bank: You spent $18.00 at AQUARIUM WORLD (1 x "very large jar").');

INSERT INTO scene VALUES ('parcel', '2026-05-13');
INSERT INTO said (at, who, says) VALUES
  ('07:30', 'parcel', 'PARCELPAL: Your parcel (1.6 m, "FRAGILE CHOUX") left Lyon at 06:02. It is being carried upright by a worried man named Didier.'),
  ('13:00', 'parcel', 'PARCELPAL: Didier has asked whether the cream is supposed to move. Reply YES or NO.'),
  ('13:02', 'me',     'YES'),
  ('13:02', 'parcel', 'PARCELPAL: Thank you. Didier is relieved.');
INSERT INTO scene VALUES ('parcel', '2026-05-16');
INSERT INTO unread (at, who, says) VALUES
  ('08:45', 'parcel', 'PARCELPAL: Delivery attempted. A cat in a bow tie signed for it. We hope this is all right.');

INSERT INTO scene VALUES ('library', '2026-04-28');
INSERT INTO said (at, who, says) VALUES
  ('09:00', 'library', 'Elm Square Library: "The Goat of Connemara" is due back tomorrow. Reply RENEW to keep it.'),
  ('09:01', 'me',      'RENEW'),
  ('09:01', 'library', 'Elm Square Library: Renewed (6th time). The librarian asks us to say that the goat is fine.');

INSERT INTO scene VALUES ('dentist', '2026-05-15');
INSERT INTO unread (at, who, says) VALUES
  ('10:00', 'dentist', 'Reminder: your appointment with Dr. Molar-Jones is Tue 19 May, 8:30. Reply C to confirm, R to run.');

INSERT INTO scene VALUES ('stranger', '2026-04-20');
INSERT INTO said (at, who, says) VALUES
  ('19:20', 'stranger', 'Hi is the accordion still for sale?'),
  ('19:22', 'me',       'I think you have the wrong number, sorry!'),
  ('19:22', 'stranger', 'Oh no. So no accordion'),
  ('19:23', 'me',       'No. My friend Zoë has one but she only knows a sad chord'),
  ('19:24', 'stranger', 'Which one'),
  ('19:24', 'me',       'D minor'),
  ('19:25', 'stranger', 'That’s all you need honestly'),
  ('19:40', 'stranger', 'I’m Gus by the way. Widower, Miami, looking for an accordion and something to do on Sundays'),
  ('19:42', 'me',       'Robin. Brooklyn. We sing on Tuesdays. Badly'),
  ('19:43', 'stranger', 'I could do Tuesdays');
INSERT INTO scene VALUES ('stranger', '2026-05-12');
INSERT INTO said (at, who, says) VALUES
  ('21:00', 'stranger', 'Found one! Red, mother-of-pearl keys, smells of cabbage'),
  ('21:02', 'me',       'GUS 🎉🪗'),
  ('21:03', 'stranger', 'Tell Zoë I know a second chord, if she’d like to swap');

INSERT INTO scene VALUES ('tuner', '2026-05-05');
INSERT INTO said (at, who, says) VALUES
  ('08:15', 'tuner', 'Good day. I am to tune a piano on a fifth floor. There is no lift and no piano. Please advise.'),
  ('08:40', 'me',    'It is arriving on Saturday. By stairs. I am the stairs'),
  ('08:41', 'tuner', 'My condolences. I will bring biscuits.');

INSERT INTO scene VALUES ('lucky', '2026-05-02');
INSERT INTO said (at, who, says) VALUES
  ('03:03', 'lucky', 'CONGRATULATIONS!!! You are the 1,000,000th owner of a telephone. Claim your FREE yacht');
INSERT INTO scene VALUES ('lucky', '2026-05-16');
INSERT INTO unread (at, who, says) VALUES
  ('03:03', 'lucky', 'FINAL NOTICE: the yacht is getting lonely');

-- The whole staircase, on the day of the piano.
INSERT INTO scene VALUES ('stairs', '2026-05-09');
INSERT INTO said (at, who, says) VALUES
  ('09:00', 'olive',    'Dear all. There is a piano on the second landing. Does it belong to anybody? Regards, Olive Pettibone, number 39'),
  ('09:02', 'me',       'It’s a friend’s! It is resting. So am I'),
  ('09:03', 'upstairs', 'can it rest somewhere thats not my door'),
  ('09:05', 'vet',      'Is the Colonel inside it? He missed his 9 o’clock.'),
  ('09:06', 'olive',    'Somebody please play a note.'),
  ('09:07', 'upstairs', 'played a note. note said meow'),
  ('09:08', 'vet',      'I am on my way.'),
  ('09:31', 'upstairs', 'he came out on his own. bowed. left'),
  ('09:32', 'olive',    'That is my boy.');
