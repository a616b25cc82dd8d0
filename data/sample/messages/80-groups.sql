-- Conversations of many.

INSERT INTO scene VALUES ('family', '2026-04-05');
INSERT INTO said (at, who, says) VALUES
  ('08:00', 'mum',  'Happy Easter my loves 🐣 Blitz has laid an egg!'),
  ('08:02', 'lena', 'Mum, Blitz is a boy'),
  ('08:03', 'mum',  'It may have been a potato.'),
  ('08:05', 'knut', 'Frohe Ostern! Was ist gelb und schießt?'),
  ('08:06', 'papa', 'Eine Banone, Knut. Seit 1978.'),
  ('08:06', 'knut', '🎯'),
  ('08:10', 'babette', 'Joyeuses Pâques ! Qui a mangé la cloche en chocolat que j’ai envoyée à Robin ?'),
  ('08:11', 'me',   'Which bell?'),
  ('08:12', 'sam',  'no idea'),
  ('08:12', 'sam',  'it was delicious'),
  ('08:15', 'babette', 'Samuel.');
INSERT INTO tapback (at, who, kind, about) VALUES
  ('08:16', 'me',   'laugh', 'Samuel.'),
  ('08:16', 'lena', 'love',  'It may have been a potato.');
INSERT INTO renamed (at, who, title) VALUES
  ('08:20', 'lena', 'Apfelbaum & Co. 🍎');
INSERT INTO said (at, who, says) VALUES
  ('08:21', 'papa', 'Wer hat den Namen geändert? Findet man die Gruppe jetzt noch?'),
  ('08:22', 'lena', 'Papa, du hast gerade in sie hineingeschrieben'),
  ('08:24', 'papa', 'Aha.');
INSERT INTO scene VALUES ('family', '2026-05-10');
INSERT INTO said (at, who, says) VALUES
  ('15:00', 'mum',  'Oma has a telephone!!! Say hello to Oma!'),
  ('15:02', 'sam',  'Hello Oma Trude! 👋'),
  ('15:20', 'oma',  'HALLO ALLE ZUSAMMEN. WIE KOMMT IHR ALLE IN DIESES KLEINE GERÄT'),
  ('15:21', 'lena', 'Eng, Oma. Sehr eng.'),
  ('15:30', 'oma',  'KNUT RÜCK MAL EIN STÜCK'),
  ('15:31', 'knut', 'Bin gerückt.'),
  ('15:32', 'papa', 'Mama, du musst nicht alles in Großbuchstaben schreiben.'),
  ('15:45', 'oma',  'DOCH');
INSERT INTO picture (at, who, file, size, says) VALUES
  ('15:50', 'oma', 'IMG_0001.jpg', 2003441, NULL),
  ('15:50', 'oma', 'IMG_0002.jpg', 2003988, NULL),
  ('15:51', 'oma', 'IMG_0003.jpg', 2001120, 'ALLES MEIN DAUMEN');
INSERT INTO tapback (at, who, kind, about) VALUES
  ('15:52', 'mum', 'love', 'KNUT RÜCK MAL');
INSERT INTO said (at, who, says) VALUES
  ('15:55', 'mum',  'It runs in the family.');

INSERT INTO scene VALUES ('cake', '2026-04-18');
INSERT INTO said (at, who, says) VALUES
  ('21:40', 'me',       'Welcome. Papa turns sixty on 30 May and flies in on the 29th to “look at my heating”. He suspects nothing.'),
  ('21:41', 'zoe',      'I have brought the whispering emoji 🤫'),
  ('21:42', 'babette',  'Moi j’apporte la pièce montée. Un mètre soixante.'),
  ('21:43', 'mateo',    'Yo, croquetas. Ciento veinte.'),
  ('21:43', 'me',       'For 41 people?'),
  ('21:44', 'mateo',    'For the first hour'),
  ('21:50', 'fiorenzo', 'The choir will sing. I have arranged “Viel Glück und viel Segen” for eight voices and a door.'),
  ('21:51', 'me',       'I deserved that'),
  ('21:55', 'bakery',   'Daughter here. Where do I put a cake the size of a coffee table?'),
  ('21:56', 'zoe',      'On the coffee table'),
  ('21:57', 'bakery',   'You’re the brains of this operation, aren’t you');
INSERT INTO tapback (at, who, kind, about) VALUES
  ('21:58', 'mateo', 'laugh', 'The choir will sing.');
INSERT INTO scene VALUES ('cake', '2026-05-15');
INSERT INTO said (at, who, says) VALUES
  ('19:00', 'zoe',      'Code word if he comes early?'),
  ('19:01', 'mateo',    '“Bechamel”'),
  ('19:02', 'me',       'You say bechamel forty times a day, Mateo'),
  ('19:03', 'mateo',    'Then he will never be suspicious'),
  ('19:05', 'babette',  'Didier demande si la crème doit bouger.'),
  ('19:06', 'bakery',   'Who is Didier'),
  ('19:06', 'me',       'Who is Didier'),
  ('19:07', 'babette',  'Un homme de confiance.');
INSERT INTO tapback (at, who, kind, about) VALUES
  ('19:08', 'zoe', 'love', 'Un homme de confiance.');

INSERT INTO scene VALUES ('sisters', '2026-05-01');
INSERT INTO said (at, who, says) VALUES
  ('17:00', 'zoe',  'Lena! Robin says you build mopeds. Can you build an accordion'),
  ('17:02', 'lena', 'How hard can it be? I have eleven screws'),
  ('17:03', 'me',   'I regret putting you two in one chat'),
  ('17:04', 'lena', 'Too late. We have a business plan'),
  ('17:05', 'zoe',  'It’s a moped. With an accordion. It honks in D minor'),
  ('17:06', 'me',   'I want one');

INSERT INTO scene VALUES ('choir', '2026-05-12');
INSERT INTO said (at, who, says) VALUES
  ('17:30', 'fiorenzo', 'Dear Accidentals. Tonight, 19:30. Please arrive before the music does.'),
  ('17:32', 'zoe',      'Can I bring it'),
  ('17:32', 'fiorenzo', 'No.'),
  ('17:33', 'alexis',   'Μμμ 🙋‍♂️'),
  ('17:34', 'mateo',    'Llevo croquetas'),
  ('17:35', 'oksana',   'І борщ. Багато борщу'),
  ('17:36', 'fiorenzo', 'This is a choir, not a restaurant.'),
  ('17:37', 'fiorenzo', 'What kind of croquetas.'),
  ('17:40', 'tenor',    'Hello, I am the new tenor, Zoë gave me the number. Is it true about the food?'),
  ('17:41', 'me',       'It is mostly about the food');
INSERT INTO tapback (at, who, kind, about) VALUES
  ('17:42', 'mateo',  'laugh', 'What kind of croquetas.'),
  ('17:42', 'oksana', 'love',  'Hello, I am the new tenor');
INSERT INTO picture (at, who, file, size, says) VALUES
  ('22:15', 'alexis', 'rehearsal.m4a', 5120400, 'Ακούστε το 2:10. Αυτό το «μμμ»!');
INSERT INTO scene VALUES ('choir', '2026-05-16');
INSERT INTO unread (at, who, says) VALUES
  ('14:00', 'fiorenzo', 'New seats for the concert. Robin: beside the exit. In case of B flat.'),
  ('14:03', 'mateo',    '🚪🎵'),
  ('14:10', 'tenor',    'I have eaten nothing since Tuesday in preparation');

INSERT INTO scene VALUES ('books', '2026-04-23');
INSERT INTO said (at, who, says) VALUES
  ('20:00', 'saoirse', 'Right. Who has finished the book?'),
  ('20:01', 'zoe',     '📖❓'),
  ('20:02', 'meera',   'I finished A book. It was a cookbook. The ending was dal'),
  ('20:03', 'layla',   'أنا قرأت المقدمة، ممتازة'),
  ('20:04', 'noa',     'I’m reading it to the cactus. He prefers poetry'),
  ('20:05', 'tsubame', 'I read the last page first. Now I have only questions'),
  ('20:06', 'me',      'Shall we just bring cheese?'),
  ('20:06', 'saoirse', 'We always just bring cheese'),
  ('20:07', 'meera',   'Motion to rename this group');
INSERT INTO renamed (at, who, title) VALUES
  ('20:08', 'zoe', 'Cheese Club 🧀');
INSERT INTO said (at, who, says) VALUES
  ('20:09', 'saoirse', 'Traitors'),
  ('20:09', 'saoirse', 'What kind of cheese'),
  ('20:10', 'noa',     'Goat'),
  ('20:10', 'saoirse', 'TOO SOON');
INSERT INTO tapback (at, who, kind, about) VALUES
  ('20:11', 'meera',   'laugh', 'TOO SOON'),
  ('20:11', 'tsubame', 'laugh', 'TOO SOON'),
  ('20:12', 'me',      'love',  'I finished A book.');
INSERT INTO scene VALUES ('books', '2026-05-14');
INSERT INTO said (at, who, says) VALUES
  ('21:00', 'layla',   'Next book? Something short'),
  ('21:01', 'zoe',     'A menu'),
  ('21:02', 'meera',   'मेन्यू! पूरा पढ़ूँगी, वादा 🙋‍♀️'),
  ('21:03', 'me',      'Seconded'),
  ('21:04', 'saoirse', 'I am surrounded by philistines. Thai or Italian?'),
  ('21:05', 'noa',     'The cactus votes Thai');

INSERT INTO scene VALUES ('lisbon', '2024-06-14');
INSERT INTO said (at, who, says) VALUES
  ('19:00', 'zoe',     'Who has the key'),
  ('19:00', 'mateo',   'Sam'),
  ('19:01', 'sam',     'Xiaoman'),
  ('19:01', 'xiaoman', 'Robin'),
  ('19:02', 'me',      'Zoë'),
  ('19:05', 'zoe',     'oh no'),
  ('19:20', 'mateo',   'The lady downstairs is giving us soup through the window'),
  ('19:21', 'sam',     'I never want to find the key');
INSERT INTO picture (at, who, file, size, says) VALUES
  ('20:40', 'xiaoman', 'IMG_2231.jpg', 3100220, 'Five people, one bench, nine custard tarts'),
  ('20:41', 'mateo',   'IMG_2232.jpg', 3099871, 'Zero custard tarts');
INSERT INTO scene VALUES ('lisbon', '2024-06-18');
INSERT INTO said (at, who, says) VALUES
  ('11:00', 'zoe',     'I found the key. It was in the accordion'),
  ('11:01', 'sam',     'You brought an accordion to LISBON'),
  ('11:02', 'zoe',     'There was a sale');
INSERT INTO tapback (at, who, kind, about) VALUES
  ('11:03', 'me', 'laugh', 'There was a sale');
INSERT INTO scene VALUES ('lisbon', '2026-03-29');
INSERT INTO said (at, who, says) VALUES
  ('10:58', 'mateo',   'I dreamt of the soup again'),
  ('10:59', 'sam',     'We all do, Mateo');

INSERT INTO scene VALUES ('dumplings', '2026-05-09');
INSERT INTO said (at, who, says) VALUES
  ('14:00', 'xiaoman', 'Order, order! The Dumpling Congress is in session 🥟'),
  ('14:01', 'dotori',  'The honourable member for 만두 requests the soy sauce'),
  ('14:02', 'ivan',    'Делегация пельменей прибыла. Со сметаной'),
  ('14:03', 'xiaoju',  '水餃代表團也到了，貓也來了'),
  ('14:04', 'me',      'The chair recognises the pillow-shaped faction (me)'),
  ('14:05', 'xiaoman', 'The chair does not recognise those as dumplings'),
  ('14:10', 'ivan',    'Предлагаю голосовать едой'),
  ('16:30', 'dotori',  'Result: 214 eaten, 0 left, 1 abstention (Robin is lying on the floor)');
INSERT INTO picture (at, who, file, size, says) VALUES
  ('16:31', 'dotori', 'robin_on_floor.jpg', 1450987, NULL);
INSERT INTO tapback (at, who, kind, about) VALUES
  ('16:32', 'ivan',   'love',   'Result: 214 eaten'),
  ('16:32', 'xiaoju', 'laugh',  'The chair recognises');
INSERT INTO said (at, who, says) VALUES
  ('16:40', 'me',      'I regret nothing. Same time next month?');
