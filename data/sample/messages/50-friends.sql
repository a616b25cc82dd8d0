-- Friends, each in the language they think in.

INSERT INTO scene VALUES ('zoe', '2026-05-06');
INSERT INTO said (at, who, says) VALUES
  ('12:01', 'zoe', 'I have made a terrible mistake'),
  ('12:01', 'me',  'How terrible'),
  ('12:02', 'zoe', 'I told the choir I can play the accordion'),
  ('12:02', 'me',  'Can you'),
  ('12:03', 'zoe', 'I own A accordion'),
  ('12:03', 'me',  'AN accordion'),
  ('12:04', 'zoe', 'It does not deserve the n yet'),
  ('12:10', 'me',  'When is the concert'),
  ('12:11', 'zoe', 'Six weeks. I can do one chord. It is a sad one.'),
  ('12:12', 'me',  'Then we will sing something sad'),
  ('12:12', 'zoe', 'Robin the song is called Hurray For The Spring');
INSERT INTO tapback (at, who, kind, about) VALUES
  ('12:13', 'me', 'stress', 'Robin the song');
INSERT INTO scene VALUES ('zoe', '2026-05-15');
INSERT INTO said (at, who, says) VALUES
  ('22:40', 'zoe', 'TWO CHORDS'),
  ('22:41', 'me',  'The neighbours?'),
  ('22:42', 'zoe', 'One has moved. One has joined in on the trombone.');

INSERT INTO scene VALUES ('mateo', '2026-05-03');
INSERT INTO said (at, who, says) VALUES
  ('13:20', 'mateo', '¿Sigues vivo? Ayer en el ensayo hiciste un ruido muy raro'),
  ('13:22', 'me',    'Era un si bemol'),
  ('13:22', 'mateo', 'No, amigo. Era una puerta.'),
  ('13:23', 'me',    '😂 Fiorenzo me miró como si le debiera dinero'),
  ('13:25', 'mateo', 'Le debes una disculpa al compositor, y lleva muerto dos siglos'),
  ('13:30', 'mateo', 'Te hago croquetas el jueves y practicamos. La garganta necesita bechamel, lo dice la ciencia'),
  ('13:31', 'me',    '¿Qué ciencia?'),
  ('13:32', 'mateo', 'Mi abuela'),
  ('13:33', 'me',    'Llevo vino. ¿Tinto?'),
  ('13:33', 'mateo', 'Trae los dos. El tinto para nosotros y el blanco también');

INSERT INTO scene VALUES ('saoirse', '2026-04-30');
INSERT INTO said (at, who, says) VALUES
  ('20:02', 'saoirse', 'Be honest. Did you read the book'),
  ('20:03', 'me',      'I read the back of the book'),
  ('20:03', 'saoirse', 'That is more than Zoë. She read the price.'),
  ('20:05', 'me',      'How far are you?'),
  ('20:05', 'saoirse', 'Page nine. There is a goat. I am very attached to the goat and I cannot go on in case something happens to it'),
  ('20:07', 'me',      'I will read ahead and check on the goat'),
  ('20:08', 'saoirse', 'You are a true friend'),
  ('23:48', 'me',      'Do not turn to page eleven'),
  ('23:49', 'saoirse', 'ROBIN'),
  ('23:50', 'me',      'He is FINE he just moves to Galway');
INSERT INTO tapback (at, who, kind, about) VALUES
  ('23:51', 'saoirse', 'love', 'He is FINE');

INSERT INTO scene VALUES ('ivan', '2026-04-19');
INSERT INTO said (at, who, says) VALUES
  ('16:00', 'ivan', 'Робин, срочный вопрос. Ты умеешь хранить секреты?'),
  ('16:02', 'me',   'Умею'),
  ('16:03', 'ivan', 'Я выбросил самовар'),
  ('16:03', 'me',   'БАБУШКИН?!'),
  ('16:04', 'ivan', 'Он тёк. И свистел по ночам. И, кажется, следил за мной'),
  ('16:10', 'me',   'Что ты скажешь бабушке?'),
  ('16:11', 'ivan', 'Что он уехал на дачу'),
  ('18:45', 'ivan', 'Достал обратно. Стоит, сияет. Смотрит с укором'),
  ('18:46', 'me',   'Налей ему чаю и извинись 🫖'),
  ('18:50', 'ivan', 'Извинился. Свистнул в ответ. Кажется, мы помирились');

INSERT INTO scene VALUES ('oksana', '2026-05-12');
INSERT INTO said (at, who, says) VALUES
  ('19:10', 'oksana', 'Ти завтра на репетицію йдеш?'),
  ('19:12', 'me',     'Йду! А що?'),
  ('19:12', 'oksana', 'Візьми контейнер. Я зварила борщ на чотирьох, а вийшло на сорок'),
  ('19:13', 'me',     'Скільки контейнерів?'),
  ('19:14', 'oksana', 'А скільки в тебе є?'),
  ('19:15', 'me',     'Три'),
  ('19:15', 'oksana', 'Купи ще');
INSERT INTO tapback (at, who, kind, about) VALUES
  ('19:16', 'me', 'laugh', 'Візьми контейнер.');
INSERT INTO scene VALUES ('oksana', '2026-05-16');
INSERT INTO unread (at, who, says) VALUES
  ('16:20', 'oksana', 'Ну як борщ? Тільки чесно'),
  ('16:21', 'oksana', 'Якщо «нормально» — я ображуся 🙃');

INSERT INTO scene VALUES ('alexis', '2026-04-22');
INSERT INTO said (at, who, says) VALUES
  ('21:30', 'alexis', 'Ρόμπιν, πόσο ψηλά πάει η πρώτη φωνή στο τέλος;'),
  ('21:31', 'me',     'Μέχρι το λα νομίζω'),
  ('21:32', 'alexis', 'Κι εμείς οι μπάσοι;'),
  ('21:33', 'me',     'Εσείς κάνετε «μμμ»'),
  ('21:33', 'alexis', 'Τρία χρόνια κάνω «μμμ»'),
  ('21:34', 'me',     'Είναι όμως το καλύτερο «μμμ» της Νέας Υόρκης'),
  ('21:36', 'alexis', 'Το ξέρω. Το λέει και η μαμά μου. Φέρνω σπανακόπιτα αύριο 🥬'),
  ('21:37', 'me',     'Μμμ');

INSERT INTO scene VALUES ('xiaoman', '2026-05-02');
INSERT INTO said (at, who, says) VALUES
  ('11:00', 'xiaoman', '饺子大会准备得怎么样了？'),
  ('11:03', 'me',      '我负责吃'),
  ('11:03', 'xiaoman', '不行，你上次也这么说'),
  ('11:05', 'me',      '好吧，我学会包了！真的！'),
  ('11:05', 'xiaoman', '发照片');
INSERT INTO picture (at, who, file, size, says) VALUES
  ('11:12', 'me', 'my_dumplings.jpg', 1200450, NULL);
INSERT INTO said (at, who, says) VALUES
  ('11:14', 'xiaoman', '……这是饺子还是枕头'),
  ('11:15', 'me',      '是有理想的饺子'),
  ('11:16', 'xiaoman', '好，理想主席，星期六六点，带醋');
INSERT INTO tapback (at, who, kind, about) VALUES
  ('11:17', 'me', 'like', '好，理想主席');

INSERT INTO scene VALUES ('xiaoju', '2026-04-11');
INSERT INTO said (at, who, says) VALUES
  ('08:30', 'xiaoju', '早安！我家的貓今天學會開冰箱了'),
  ('08:32', 'me',     '恭喜？'),
  ('08:32', 'xiaoju', '不要恭喜，牠只開，不關'),
  ('08:40', 'me',     '那你們家現在是室外還是室內'),
  ('08:41', 'xiaoju', '是冰箱 🧊');

INSERT INTO scene VALUES ('tsubame', '2026-05-16');
INSERT INTO said (at, who, says) VALUES
  ('09:00', 'tsubame', 'ロビン、おはよう！今週の本、読んだ？'),
  ('09:05', 'me',      '表紙はとてもきれいだった'),
  ('09:06', 'tsubame', 'やっぱり（笑）私もあとがきから読んでる'),
  ('09:08', 'me',      'ヤギのこと、知ってる？'),
  ('09:09', 'tsubame', '言わないで！！まだ八ページ！');
INSERT INTO picture (at, who, file, size, says) VALUES
  ('09:20', 'tsubame', 'しおり.png', 88120, 'しおりを作ったよ。ヤギの');
INSERT INTO unread (at, who, says) VALUES
  ('21:47', 'tsubame', '十一ページ、読んじゃった'),
  ('21:48', 'tsubame', 'ゴールウェイに引っ越すなんて聞いてない 😭🐐');

INSERT INTO scene VALUES ('dotori', '2026-05-04');
INSERT INTO said (at, who, says) VALUES
  ('15:10', 'dotori', '로빈, 이사 도와줄 수 있어? 짐 별로 없어'),
  ('15:11', 'me',     '당연하지! 상자 몇 개?'),
  ('15:12', 'dotori', '상자는 네 개'),
  ('15:12', 'dotori', '그리고 피아노'),
  ('15:13', 'me',     '피아노??'),
  ('15:14', 'dotori', '작은 거야. 몇 층인지는 나중에 말해 줄게'),
  ('15:15', 'me',     '지금 말해'),
  ('15:20', 'dotori', '오층. 떡볶이 사 줄게 🙏'),
  ('15:21', 'me',     '…매운 걸로');
INSERT INTO tapback (at, who, kind, about) VALUES
  ('15:22', 'dotori', 'love', '…매운 걸로');

INSERT INTO scene VALUES ('layla', '2026-05-16');
INSERT INTO said (at, who, says) VALUES
  ('18:00', 'layla', 'روبن! هل عندك وصفة الخبز؟'),
  ('18:03', 'me',    'عندي، لكن الخميرة اسمها جيرالد وهي عنيدة قليلاً'),
  ('18:04', 'layla', 'الخميرة لها اسم؟'),
  ('18:04', 'me',    'وعيد ميلاد أيضاً'),
  ('18:06', 'layla', 'أنتم غريبون. أرسل لي قطعة من جيرالد'),
  ('18:07', 'me',    'سأسأله أولاً');
INSERT INTO unread (at, who, says) VALUES
  ('22:15', 'layla', 'ماذا قال جيرالد؟ 🍞');

INSERT INTO scene VALUES ('noa', '2026-04-27');
INSERT INTO said (at, who, says) VALUES
  ('10:10', 'noa', 'רובין, קניתי עציץ. כמה זמן עד שאני הורגת אותו?'),
  ('10:12', 'me',  'איזה עציץ?'),
  ('10:12', 'noa', 'קקטוס'),
  ('10:13', 'me',  'אי אפשר להרוג קקטוס'),
  ('10:14', 'noa', 'תחזיק לי את הקפה'),
  ('10:40', 'me',  'נועה, מה עשית'),
  ('10:41', 'noa', 'כלום! רק דיברתי איתו. הוא נשען 🌵');

INSERT INTO scene VALUES ('meera', '2026-04-29');
INSERT INTO said (at, who, says) VALUES
  ('20:20', 'meera', 'रॉबिन, तुम्हारी चाय में नमक था'),
  ('20:22', 'me',    'वो चीनी थी!'),
  ('20:22', 'meera', 'नहीं। मैंने पूरा कप पिया। दोस्ती में।'),
  ('20:24', 'me',    'हे भगवान, माफ़ करना 😳'),
  ('20:25', 'meera', 'कोई बात नहीं, अब मैं समुद्र को समझती हूँ'),
  ('20:26', 'me',    'अगली बार मैं डिब्बों पर नाम लिखूँगा'),
  ('20:27', 'meera', 'हिंदी में लिखना, Sam को भी सज़ा मिले 😈');
INSERT INTO tapback (at, who, kind, about) VALUES
  ('20:28', 'me', 'love', 'कोई बात नहीं');

-- Åse's telephone writes its lines in the archive only.
INSERT INTO scene VALUES ('aase', '2026-04-06');
INSERT INTO rich (at, who, says) VALUES
  ('07:15', 'aase', 'Hej Robin! Snön är borta men skidorna står kvar i hallen. Jag saknar den.'),
  ('07:20', 'me',   'Hej Åse! Snön eller hallen?'),
  ('07:21', 'aase', 'Snön. Hallen är full av skidor, det är just problemet.');
