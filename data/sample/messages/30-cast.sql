-- Everybody who writes to Robin. All numbers come from the ranges that the countries keep free for
-- films and books, and the short codes begin with 1, as no real one does. Nobody will ever answer.

INSERT INTO person (nick, address, country) VALUES
  -- the family
  ('mum',      '+447700900142',          'gb'),
  ('papa',     '+491713920011',          'de'),
  ('lena',     '+4917604069023',         'de'),
  ('oma',      '+491713920077',          'de'),
  ('knut',     'knut@example.org',       NULL),
  ('babette',  '+33639980127',           'fr'),
  ('sam',      '+19175550101',           'us'),
  -- friends
  ('zoe',      '+17185550114',           'us'),
  ('mateo',    '+16465550131',           'us'),
  ('saoirse',  '+353209150123',          'ie'),
  ('ivan',     'ivan@example.com',       NULL),
  ('oksana',   '+13475550162',           'us'),
  ('alexis',   'alexis@example.net',     NULL),
  ('xiaoman',  '+19175550128',           'us'),
  ('xiaoju',   'xiaoju@example.org',     NULL),
  ('tsubame',  'tsubame@example.com',    NULL),
  ('dotori',   '+12135550177',           'us'),
  ('layla',    '+447700900388',          'gb'),
  ('noa',      'noa@example.org',        NULL),
  ('meera',    '+14085550119',           'us'),
  ('aase',     '+46701740655',           'se'),
  -- Paper Compass, makers of maps
  ('ingrid',   '+46701740612',           'se'),
  ('desmond',  '+12125550166',           'us'),
  ('priyanka', 'priyanka@example.com',   NULL),
  ('barty',    '+19295550149',           'us'),
  -- the neighbourhood
  ('olive',    '+17185550152',           'us'),
  ('bakery',   '+17185550193',           'us'),
  ('fiorenzo', '+16465550185',           'us'),
  ('vet',      '+17185550171',           'us'),
  -- in no address book
  ('bank',     '18300',                  'us'),
  ('parcel',   '18225',                  'us'),
  ('library',  '14227',                  'us'),
  ('dentist',  '+12125550187',           'us'),
  ('stranger', '+13055550148',           'us'),
  ('tuner',    'piano.tuner@example.net', NULL),
  ('lucky',    '+18085550123',           'us'),
  ('tenor',    '+16465550139',           'us'),
  ('upstairs', '+17185550160',           'us');

INSERT INTO chat_of (nick, guid, service, people) VALUES
  ('mum',      'iMessage;-;+447700900142',        'iMessage', 'mum'),
  ('mum-sms',  'SMS;-;+447700900142',             'SMS',      'mum'),
  ('papa',     'iMessage;-;+491713920011',        'iMessage', 'papa'),
  ('lena',     'iMessage;-;+4917604069023',       'iMessage', 'lena'),
  ('oma',      'SMS;-;+491713920077',             'SMS',      'oma'),
  ('knut',     'iMessage;-;knut@example.org',     'iMessage', 'knut'),
  ('babette',  'iMessage;-;+33639980127',         'iMessage', 'babette'),
  ('sam',      'iMessage;-;+19175550101',         'iMessage', 'sam'),
  ('zoe',      'iMessage;-;+17185550114',         'iMessage', 'zoe'),
  ('mateo',    'SMS;-;+16465550131',              'SMS',      'mateo'),
  ('saoirse',  'RCS;-;+353209150123',             'RCS',      'saoirse'),
  ('ivan',     'iMessage;-;ivan@example.com',     'iMessage', 'ivan'),
  ('oksana',   'iMessage;-;+13475550162',         'iMessage', 'oksana'),
  ('alexis',   'iMessage;-;alexis@example.net',   'iMessage', 'alexis'),
  ('xiaoman',  'iMessage;-;+19175550128',         'iMessage', 'xiaoman'),
  ('xiaoju',   'iMessage;-;xiaoju@example.org',   'iMessage', 'xiaoju'),
  ('tsubame',  'iMessage;-;tsubame@example.com',  'iMessage', 'tsubame'),
  ('dotori',   'iMessage;-;+12135550177',         'iMessage', 'dotori'),
  ('layla',    'iMessage;-;+447700900388',        'iMessage', 'layla'),
  ('noa',      'iMessage;-;noa@example.org',      'iMessage', 'noa'),
  ('meera',    'iMessage;-;+14085550119',         'iMessage', 'meera'),
  ('aase',     'iMessage;-;+46701740655',         'iMessage', 'aase'),
  ('ingrid',   'iMessage;-;+46701740612',         'iMessage', 'ingrid'),
  ('desmond',  'iMessage;-;+12125550166',         'iMessage', 'desmond'),
  ('priyanka', 'iMessage;-;priyanka@example.com', 'iMessage', 'priyanka'),
  ('barty',    'SMS;-;+19295550149',              'SMS',      'barty'),
  ('olive',    'SMS;-;+17185550152',              'SMS',      'olive'),
  ('bakery',   'SMS;-;+17185550193',              'SMS',      'bakery'),
  ('fiorenzo', 'any;-;+16465550185',              'iMessage', 'fiorenzo'),
  ('vet',      'SMS;-;+17185550171',              'SMS',      'vet'),
  ('bank',     'SMS;-;18300',                     'SMS',      'bank'),
  ('parcel',   'SMS;-;18225',                     'SMS',      'parcel'),
  ('library',  'SMS;-;14227',                     'SMS',      'library'),
  ('dentist',  'SMS;-;+12125550187',              'SMS',      'dentist'),
  ('stranger', 'SMS;-;+13055550148',              'SMS',      'stranger');

-- Senders whom the phone sorted out: 1 unknown, 2 junk.
INSERT INTO chat_of (nick, guid, service, people, filtered) VALUES
  ('tuner',    'iMessage;-;piano.tuner@example.net', 'iMessage', 'tuner', 1),
  ('lucky',    'SMS;-;+18085550123',                 'SMS',      'lucky', 2);

INSERT INTO chat_of (nick, guid, service, people, title) VALUES
  ('family',   'iMessage;+;chat210305000001', 'iMessage', 'mum papa lena oma knut babette sam', 'Family'),
  ('cake',     'iMessage;+;chat210305000002', 'iMessage', 'babette zoe mateo fiorenzo bakery',
   '🤫 Operation Cake'),
  ('sisters',  'iMessage;+;chat210305000003', 'iMessage', 'lena zoe', NULL),
  ('choir',    'iMessage;+;chat210305000004', 'iMessage', 'fiorenzo zoe mateo alexis oksana tenor',
   'The Accidentals 🎶'),
  ('books',    'iMessage;+;chat210305000005', 'iMessage', 'saoirse zoe meera layla noa tsubame',
   'Book Club'),
  ('maps',     'iMessage;+;chat210305000006', 'iMessage', 'ingrid desmond priyanka barty',
   'Paper Compass · Atlas team'),
  ('stairs',   'SMS;+;chat210305000007',      'SMS',      'olive upstairs vet', NULL),
  ('lisbon',   'iMessage;+;chat210305000008', 'iMessage', 'sam zoe mateo xiaoman', 'Lisbon 2024 🇵🇹'),
  ('dumplings', 'iMessage;+;chat210305000009', 'iMessage', 'xiaoman dotori xiaoju ivan',
   'Dumpling Congress 🥟'),
  -- nobody has dared to speak yet
  ('ski',      'iMessage;+;chat210305000010', 'iMessage', 'papa knut aase', 'Skiing, maybe'),
  ('aase-sms', 'SMS;-;+46701740655',          'SMS',      'aase', NULL);
