-- The family: two cities, one tortoise, and a father who is about to turn sixty.

INSERT INTO scene VALUES ('mum', '2026-05-14');
INSERT INTO said (at, who, says) VALUES
  ('08:02', 'mum', 'Darling, is it normal for a tortoise to be on the roof?'),
  ('08:04', 'me',  'On WHICH roof'),
  ('08:04', 'mum', 'Ours.'),
  ('08:05', 'me',  'Mum. How did Blitz get on the roof.'),
  ('08:07', 'mum', 'That is what I am asking you. You are the one who works with maps.'),
  ('08:08', 'me',  'I make maps of islands. Is it a nice roof at least'),
  ('08:15', 'mum', 'He seems happy. He is eating the gutter.');
INSERT INTO picture (at, who, file, size, says) VALUES
  ('08:16', 'mum', 'Blitz on roof.jpg', 1843200, NULL);
INSERT INTO said (at, who, says) VALUES
  ('08:16', 'mum', 'Sorry, that is my thumb.'),
  ('08:17', 'me',  'It is a very good thumb');
INSERT INTO picture (at, who, file, size, says) VALUES
  ('08:21', 'mum', 'Blitz on roof again.jpg', 1911004, 'THIS is him.');
INSERT INTO tapback (at, who, kind, about) VALUES
  ('08:22', 'me', 'laugh', 'He seems happy.');
INSERT INTO scene VALUES ('mum', '2026-05-16');
INSERT INTO said (at, who, says) VALUES
  ('17:40', 'mum', 'The fire brigade were charming. One of them has a tortoise called Turbo.'),
  ('17:41', 'me',  'And Blitz?'),
  ('17:44', 'mum', 'Asleep in the colander. He has had a big day.');
INSERT INTO unread (at, who, says) VALUES
  ('18:31', 'mum', 'Do you still have my big colander, by the way? This one is now his.'),
  ('18:32', 'mum', 'Call me. Not urgent. But today. x');

-- The same mother, on the train, where only text messages arrive.
INSERT INTO scene VALUES ('mum-sms', '2026-04-03');
INSERT INTO said (at, who, says) VALUES
  ('14:10', 'mum', 'On train. No internet. Is this a green one?'),
  ('14:12', 'me',  'Yes Mum this is a green one'),
  ('14:13', 'mum', 'It costs the same I think. Man opposite is eating soup. On a TRAIN.'),
  ('14:14', 'me',  'What kind'),
  ('14:20', 'mum', 'Leek. Smells excellent. I have asked for the recipe.'),
  ('14:51', 'mum', 'His name is Alan and he grates the potato in. GRATES it.');

INSERT INTO scene VALUES ('papa', '2026-04-25');
INSERT INTO said (at, who, says) VALUES
  ('19:05', 'papa', 'Robin, weißt du, wo mein Akkuschrauber ist?'),
  ('19:09', 'me',   'Bei Lena. Sie baut das Moped um.'),
  ('19:10', 'papa', 'Das Moped ist doch gar nicht kaputt.'),
  ('19:11', 'me',   'Noch nicht.'),
  ('19:30', 'papa', 'Ich habe Lena angerufen. Sie sagt, er ist bei dir.'),
  ('19:31', 'me',   'Ich wohne in Brooklyn, Papa.'),
  ('19:34', 'papa', 'Das hat sie auch gesagt. Ich fand es verdächtig, dass du so weit weg bist.');
INSERT INTO scene VALUES ('papa', '2026-05-13');
INSERT INTO said (at, who, says) VALUES
  ('18:12', 'papa', 'Am 30. will ich übrigens gar nichts machen. Nur ein Butterbrot und meine Ruhe.'),
  ('18:20', 'me',   'Natürlich. Ganz ruhig. Butterbrot.'),
  ('18:21', 'papa', 'Warum fragt mich dann Knut nach meiner Lieblingstorte?'),
  ('18:22', 'me',   'Knut fragt jeden nach Torte. Das ist seine Art, guten Tag zu sagen.'),
  ('18:24', 'papa', 'Stimmt auch wieder. (Schwarzwälder.)'),
  ('18:25', 'me',   'Ich habe nichts gehört 🙉');
INSERT INTO tapback (at, who, kind, about) VALUES
  ('18:26', 'papa', 'love', 'Natürlich. Ganz ruhig.');

INSERT INTO scene VALUES ('lena', '2026-05-09');
INSERT INTO said (at, who, says) VALUES
  ('21:00', 'lena', 'Hypothetisch: wie viele Schrauben dürfen nach dem Zusammenbauen übrig sein?'),
  ('21:01', 'me',   'Null'),
  ('21:01', 'lena', 'Hypothetisch sind es elf'),
  ('21:02', 'me',   'LENA'),
  ('21:02', 'lena', 'Es fährt aber!!'),
  ('21:03', 'me',   'Wie schnell'),
  ('21:04', 'lena', 'Ja');
INSERT INTO picture (at, who, file, size, says) VALUES
  ('21:06', 'lena', 'elf_schrauben.jpg', 922100, 'Falls du eine wiedererkennst');
INSERT INTO said (at, who, says) VALUES
  ('21:08', 'me',   'Die große gehört zum Küchentisch'),
  ('21:09', 'lena', 'Das erklärt das Abendessen'),
  ('21:15', 'lena', 'Der Akkuschrauber ist offiziell bei dir, ok? Danke, Liebling'),
  ('21:16', 'me',   'Das kostet dich die Lakritze aus Omas Geheimschublade');
INSERT INTO tapback (at, who, kind, about) VALUES
  ('21:17', 'lena', 'dislike', 'Das kostet dich die Lakritze');
INSERT INTO scene VALUES ('lena', '2026-05-15');
INSERT INTO said (at, who, says) VALUES
  ('07:44', 'lena', 'Flug gebucht. 28. Mai, 14:05 in New York, ich bringe Oma und eine Kühltasche'),
  ('07:50', 'me',   'Was ist in der Kühltasche'),
  ('07:51', 'lena', 'Oma sagt: „Das geht den Zoll nichts an.“');

INSERT INTO scene VALUES ('oma', '2026-05-10');
INSERT INTO said (at, who, says) VALUES
  ('06:30', 'oma', 'HALLO ROBIN HIER IST OMA'),
  ('06:31', 'oma', 'DAS IST MEIN NEUES TELEFON'),
  ('07:55', 'me',  'Guten Morgen Oma! Warum schreist du so? 😄'),
  ('08:10', 'oma', 'ICH SCHREIE NICHT DIE TASTE IST FEST'),
  ('08:11', 'me',  'Links ist ein Pfeil nach oben, da einmal draufdrücken'),
  ('08:29', 'oma', 'so besser'),
  ('08:30', 'me',  'Viel besser!'),
  ('08:33', 'oma', 'jetzt finde ich es ein bisschen langweilig'),
  ('08:34', 'oma', 'GLEICH WIEDER ZURÜCK'),
  ('08:40', 'oma', 'WER IST DIESE FRAU DIE IM TELEFON WOHNT. ICH HABE SIE NACH KARTOFFELPREISEN GEFRAGT. SIE WAR FREUNDLICH ABER DUMM'),
  ('08:41', 'me',  'Das ist die Sprachassistentin'),
  ('08:45', 'oma', 'SIE BRAUCHT MAL EINE WARME MAHLZEIT');
INSERT INTO scene VALUES ('oma', '2026-05-16');
INSERT INTO unread (at, who, says) VALUES
  ('06:12', 'oma', 'ROBIN ICH HABE 4 GESICHTER GEFUNDEN 🥔🐢🎂🛵 MAN KANN SIE VERSCHICKEN'),
  ('06:13', 'oma', 'DIE KARTOFFEL HAT KEIN GESICHT. BITTE DEN HERSTELLER INFORMIEREN');

INSERT INTO scene VALUES ('knut', '2026-04-01');
INSERT INTO said (at, who, says) VALUES
  ('09:00', 'knut', 'Treffen sich zwei Seekarten. Sagt die eine: „Du wirkst so verschlossen.“'),
  ('09:01', 'knut', 'Sagt die andere: „Ich muss mich erst entfalten.“'),
  ('12:30', 'me',   'Onkel Knut, es ist sechs Uhr morgens bei mir gewesen'),
  ('12:31', 'knut', 'Humor kennt keine Zeitzonen'),
  ('12:33', 'knut', 'Was macht ein Kompass im Urlaub?'),
  ('12:40', 'me',   '…'),
  ('12:41', 'knut', 'Nichts. Aber er weiß genau, wo.');
INSERT INTO tapback (at, who, kind, about) VALUES
  ('12:42', 'me', 'ask', 'Nichts. Aber er weiß genau');
INSERT INTO scene VALUES ('knut', '2026-05-12');
INSERT INTO said (at, who, says) VALUES
  ('20:15', 'knut', 'Dein Vater hat Schwarzwälder gesagt. Ich habe NICHT gefragt, ich habe nur das Wort Torte in den Raum gestellt.'),
  ('20:17', 'me',   'Er ahnt was!!'),
  ('20:18', 'knut', 'Er ahnt seit 1971 irgendwas. Bisher lag er immer falsch.');

INSERT INTO scene VALUES ('babette', '2026-05-08');
INSERT INTO said (at, who, says) VALUES
  ('11:20', 'babette', 'Mon petit chou, quelle est la largeur de ta porte d’entrée ?'),
  ('11:24', 'me',      'Euh… 81 cm. Pourquoi ?'),
  ('11:25', 'babette', 'Sans raison. Et la hauteur sous plafond ?'),
  ('11:26', 'me',      'Tante Babette, qu’est-ce que tu apportes'),
  ('11:27', 'babette', 'Une petite pièce montée de rien du tout.'),
  ('11:27', 'babette', 'Un mètre soixante.'),
  ('11:30', 'me',      'C’est plus grand que toi !'),
  ('11:31', 'babette', 'Justement, on me remarquera enfin.');
INSERT INTO picture (at, who, file, size, says) VALUES
  ('11:40', 'babette', 'maquette_choux.jpg', 2240331, 'Le prototype. Le chat en a mangé l’étage trois.');
INSERT INTO tapback (at, who, kind, about) VALUES
  ('11:41', 'me', 'love', 'Justement, on me');

INSERT INTO scene VALUES ('sam', '2026-05-11');
INSERT INTO said (at, who, says) VALUES
  ('09:14', 'sam', 'Did you feed Gerald'),
  ('09:15', 'me',  'I fed Gerald yesterday'),
  ('09:15', 'sam', 'Gerald is coming out of the jar'),
  ('09:16', 'me',  'How far out'),
  ('09:16', 'sam', 'He has reached the toaster'),
  ('09:17', 'me',  'ok stay calm. Speak to him gently. Put flour on the floor so he has somewhere to go'),
  ('09:18', 'sam', 'I am not being herded by a sourdough starter Robin'),
  ('09:25', 'sam', 'update: I am being herded by a sourdough starter');
INSERT INTO picture (at, who, file, size, says) VALUES
  ('09:26', 'sam', 'gerald_escapes.jpg', 1502210, NULL);
INSERT INTO tapback (at, who, kind, about) VALUES
  ('09:27', 'me', 'laugh', 'update: I am being herded');
INSERT INTO scene VALUES ('sam', '2026-05-13');
INSERT INTO said (at, who, says) VALUES
  ('18:02', 'me',  'Home in 20. Need anything?'),
  ('18:03', 'sam', 'milk, lemons, a bigger jar'),
  ('18:03', 'me',  'How much bigger'),
  ('18:04', 'sam', 'Think aquarium');
INSERT INTO scene VALUES ('sam', '2026-05-16');
INSERT INTO said (at, who, says) VALUES
  ('10:02', 'sam', 'There is a cat in our bed'),
  ('10:03', 'me',  'We don’t have a cat'),
  ('10:03', 'sam', 'I know. He has a bow tie.'),
  ('10:04', 'me',  'Oh that’s Colonel Biscuit. He’s Mrs. Pettibone’s. Did you leave the window open'),
  ('10:05', 'sam', 'No. I think he has a key'),
  ('10:20', 'sam', 'He is on my side and he is SPOONING THE PILLOW'),
  ('10:21', 'me',  'Be polite, he outranks you'),
  ('19:45', 'sam', 'Soup is on. Colonel is staying for soup. Love you, hurry ❤️');
INSERT INTO tapback (at, who, kind, about) VALUES
  ('19:46', 'me', 'love', 'Soup is on.');
