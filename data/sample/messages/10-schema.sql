-- The tables of a recent phone's Messages database, with the columns that matter to a reader.
-- Dates are nanoseconds since 2001-01-01 00:00:00 UTC; style 45 is one-to-one, 43 a group.

CREATE TABLE _SqliteDatabaseProperties (key TEXT, value TEXT, UNIQUE(key));
INSERT INTO _SqliteDatabaseProperties VALUES ('_ClientVersion', '26001'), ('counter_in_all', '0');

CREATE TABLE handle (
  ROWID INTEGER PRIMARY KEY AUTOINCREMENT UNIQUE,
  id TEXT NOT NULL,
  country TEXT,
  service TEXT NOT NULL,
  uncanonicalized_id TEXT,
  person_centric_id TEXT,
  UNIQUE (id, service));

CREATE TABLE chat (
  ROWID INTEGER PRIMARY KEY AUTOINCREMENT,
  guid TEXT UNIQUE NOT NULL,
  style INTEGER,
  state INTEGER,
  chat_identifier TEXT,
  service_name TEXT,
  room_name TEXT,
  account_login TEXT,
  is_archived INTEGER DEFAULT 0,
  display_name TEXT,
  group_id TEXT,
  is_filtered INTEGER DEFAULT 0,
  original_group_id TEXT,
  last_read_message_timestamp INTEGER DEFAULT 0,
  is_blackholed INTEGER DEFAULT 0);

CREATE TABLE message (
  ROWID INTEGER PRIMARY KEY AUTOINCREMENT,
  guid TEXT UNIQUE NOT NULL,
  text TEXT,
  handle_id INTEGER DEFAULT 0,
  subject TEXT,
  attributedBody BLOB,
  service TEXT,
  account TEXT,
  error INTEGER DEFAULT 0,
  date INTEGER,
  date_read INTEGER DEFAULT 0,
  date_delivered INTEGER DEFAULT 0,
  is_delivered INTEGER DEFAULT 0,
  is_finished INTEGER DEFAULT 0,
  is_from_me INTEGER DEFAULT 0,
  is_read INTEGER DEFAULT 0,
  is_system_message INTEGER DEFAULT 0,
  is_sent INTEGER DEFAULT 0,
  cache_has_attachments INTEGER DEFAULT 0,
  cache_roomnames TEXT,
  item_type INTEGER DEFAULT 0,
  other_handle INTEGER DEFAULT 0,
  group_title TEXT,
  group_action_type INTEGER DEFAULT 0,
  associated_message_guid TEXT,
  associated_message_type INTEGER DEFAULT 0);

CREATE TABLE attachment (
  ROWID INTEGER PRIMARY KEY AUTOINCREMENT,
  guid TEXT UNIQUE NOT NULL,
  created_date INTEGER DEFAULT 0,
  filename TEXT,
  uti TEXT,
  mime_type TEXT,
  transfer_state INTEGER DEFAULT 0,
  is_outgoing INTEGER DEFAULT 0,
  transfer_name TEXT,
  total_bytes INTEGER DEFAULT 0,
  original_guid TEXT UNIQUE NOT NULL);

CREATE TABLE chat_handle_join (
  chat_id INTEGER REFERENCES chat (ROWID) ON DELETE CASCADE,
  handle_id INTEGER REFERENCES handle (ROWID) ON DELETE CASCADE,
  UNIQUE (chat_id, handle_id));

CREATE TABLE chat_message_join (
  chat_id INTEGER REFERENCES chat (ROWID) ON DELETE CASCADE,
  message_id INTEGER REFERENCES message (ROWID) ON DELETE CASCADE,
  message_date INTEGER DEFAULT 0,
  PRIMARY KEY (chat_id, message_id));

CREATE TABLE message_attachment_join (
  message_id INTEGER REFERENCES message (ROWID) ON DELETE CASCADE,
  attachment_id INTEGER REFERENCES attachment (ROWID) ON DELETE CASCADE,
  UNIQUE (message_id, attachment_id));

CREATE INDEX message_idx_date ON message (date);
CREATE INDEX message_idx_isRead_isFromMe_itemType ON message (is_read, is_from_me, item_type);
CREATE INDEX chat_message_join_idx_message_id_only ON chat_message_join (message_id);
CREATE INDEX chat_message_join_idx_message_date_id_chat_id
  ON chat_message_join (chat_id, message_date, message_id);
CREATE INDEX chat_handle_join_idx_handle_id ON chat_handle_join (handle_id);
CREATE INDEX message_attachment_join_idx_attachment_id ON message_attachment_join (attachment_id);
