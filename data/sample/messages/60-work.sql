-- Paper Compass makes maps for people who enjoy being slightly lost.

INSERT INTO scene VALUES ('ingrid', '2026-05-07');
INSERT INTO said (at, who, says) VALUES
  ('09:30', 'ingrid', 'Good morning Robin. Small thing about page 44.'),
  ('09:31', 'me',     'Morning! What’s wrong with it?'),
  ('09:31', 'ingrid', 'The island of Stora Knöl. It is very pretty.'),
  ('09:32', 'me',     'Thank you!'),
  ('09:33', 'ingrid', 'It does not exist.'),
  ('09:35', 'me',     'Are you sure'),
  ('09:36', 'ingrid', 'I grew up there. I mean: where it would be. We sailed through it every summer.'),
  ('09:40', 'me',     'I think it was a coffee stain'),
  ('09:41', 'ingrid', 'You gave it a harbour and two churches.'),
  ('09:42', 'me',     'It was a very convincing coffee stain'),
  ('09:50', 'ingrid', 'Keep one church. Every atlas needs a secret.');
INSERT INTO tapback (at, who, kind, about) VALUES
  ('09:51', 'me', 'love', 'Keep one church.');

INSERT INTO scene VALUES ('desmond', '2026-05-15');
INSERT INTO said (at, who, says) VALUES
  ('15:00', 'desmond', 'Which of these blues says “sea” and which says “dentist”'),
  ('15:00', 'desmond', '#3A8FB7 or #3A90B7');
INSERT INTO picture (at, who, file, size, says) VALUES
  ('15:01', 'desmond', 'two_blues.png', 41002, NULL);
INSERT INTO said (at, who, says) VALUES
  ('15:03', 'me',      'Desmond these are the same blue'),
  ('15:04', 'desmond', 'I am going to pretend you did not say that'),
  ('15:05', 'me',      'The left one? For the sea?'),
  ('15:05', 'desmond', 'The left one is the DENTIST, Robin');
INSERT INTO scene VALUES ('desmond', '2026-05-16');
INSERT INTO unread (at, who, says) VALUES
  ('11:11', 'desmond', 'I know it is Saturday but I have found a third blue');

INSERT INTO scene VALUES ('priyanka', '2026-05-05');
INSERT INTO said (at, who, says) VALUES
  ('10:00', 'priyanka', 'Do you have the coordinates of the picnic? Not for work. I am hungry.'),
  ('10:01', 'me',       '40.66 N, 73.97 W, left of the big elm'),
  ('10:01', 'priyanka', 'Which datum'),
  ('10:02', 'me',       'The one with the potato salad'),
  ('10:20', 'priyanka', 'Found you. You are four metres off.');
INSERT INTO scene VALUES ('priyanka', '2026-05-14');
INSERT INTO picture (at, who, file, size, says) VALUES
  ('16:30', 'priyanka', 'atlas_proof_v7_final_FINAL.pdf', 18822011, 'Proof. Please look at Antarctica, Barty has been there.');
INSERT INTO said (at, who, says) VALUES
  ('16:44', 'me',       'Why is there a snack bar'),
  ('16:45', 'priyanka', 'As I said. Barty has been there.');

INSERT INTO scene VALUES ('barty', '2026-05-13');
INSERT INTO said (at, who, says) VALUES
  ('08:58', 'barty', 'hi its barty from work!! quick q where is north usually'),
  ('08:59', 'me',    'Up'),
  ('08:59', 'barty', 'always?'),
  ('09:00', 'me',    'On our maps, yes'),
  ('09:00', 'barty', 'ok so good news and bad news'),
  ('09:01', 'me',    'Bad first'),
  ('09:02', 'barty', 'i turned australia'),
  ('09:02', 'me',    'And the good news?'),
  ('09:03', 'barty', 'it looks REALLY good');
INSERT INTO tapback (at, who, kind, about) VALUES
  ('09:04', 'me', 'laugh', 'it looks REALLY good');

INSERT INTO scene VALUES ('maps', '2026-05-15');
INSERT INTO said (at, who, says) VALUES
  ('09:00', 'ingrid',   'Team. We print on Friday. Please list everything that is still wrong.'),
  ('09:02', 'desmond',  'The blue'),
  ('09:02', 'priyanka', 'Antarctica has a snack bar'),
  ('09:03', 'me',       'Page 44 has one church too few'),
  ('09:04', 'barty',    'is it ok that theres a cat on page 12'),
  ('09:05', 'priyanka', 'A drawing of a cat?'),
  ('09:05', 'barty',    'no'),
  ('09:06', 'me',       'Is he wearing a bow tie'),
  ('09:06', 'barty',    'how did you know that');
INSERT INTO picture (at, who, file, size, says) VALUES
  ('09:07', 'barty', 'page12.jpg', 998877, NULL);
INSERT INTO tapback (at, who, kind, about) VALUES
  ('09:08', 'desmond', 'love', 'is it ok that theres a cat'),
  ('09:09', 'ingrid',  'ask',  'how did you know that');
INSERT INTO said (at, who, says) VALUES
  ('09:15', 'ingrid',   'The cat stays. He improves the Balkans.');
INSERT INTO scene VALUES ('maps', '2026-05-16');
INSERT INTO unread (at, who, says) VALUES
  ('12:00', 'desmond',  'Third blue. Vote now. (It is beautiful. Vote yes.)'),
  ('12:04', 'priyanka', 'It is Saturday, Desmond.'),
  ('12:05', 'desmond',  'The sea does not close on Saturdays, Priyanka.'),
  ('12:30', 'barty',    'i vote cat');
