-- What lets the other files read like a play. Everything here is temporary: views that take what
-- is written to them and turn it into the rows of a Messages database.
--
--   person    a nickname for an address, used in these files only
--   chat_of   a conversation and who is in it, by nickname, "me" left out
--   scene     the conversation and the day of the lines that follow
--   said      a line that was read            unread    one that was not
--   rich      a line whose text stands in the attributed body alone
--   picture   a line with an attachment       tapback   a reaction to the line that begins so
--   renamed   someone gave the conversation a new name
--
-- Times are UTC. A nickname, a scene or a line that does not exist stops the making.

CREATE TEMP TABLE person (nick TEXT PRIMARY KEY, address TEXT NOT NULL, country TEXT);

CREATE TEMP TABLE casting (
  nick TEXT PRIMARY KEY, chat INTEGER NOT NULL, service TEXT NOT NULL);

CREATE TEMP TABLE curtain (nick TEXT, chat INTEGER, service TEXT, day TEXT);
INSERT INTO curtain VALUES (NULL, NULL, NULL, NULL);

CREATE TEMP TABLE reaction (kind TEXT PRIMARY KEY, code INTEGER, verb TEXT);
INSERT INTO reaction VALUES
  ('love', 2000, 'Loved'), ('like', 2001, 'Liked'), ('dislike', 2002, 'Disliked'),
  ('laugh', 2003, 'Laughed at'), ('stress', 2004, 'Emphasized'), ('ask', 2005, 'Questioned');

CREATE TEMP VIEW chat_of AS
  SELECT NULL AS nick, NULL AS guid, NULL AS service, NULL AS people, NULL AS title,
         NULL AS filtered;
CREATE TEMP VIEW scene AS SELECT NULL AS nick, NULL AS day;
CREATE TEMP VIEW entry AS
  SELECT NULL AS at, NULL AS who, NULL AS says, NULL AS is_read, NULL AS item, NULL AS title,
         NULL AS body, NULL AS about, NULL AS reaction, NULL AS attachments;
CREATE TEMP VIEW said AS SELECT NULL AS at, NULL AS who, NULL AS says;
CREATE TEMP VIEW unread AS SELECT NULL AS at, NULL AS who, NULL AS says;
CREATE TEMP VIEW rich AS SELECT NULL AS at, NULL AS who, NULL AS says;
CREATE TEMP VIEW picture AS
  SELECT NULL AS at, NULL AS who, NULL AS file, NULL AS size, NULL AS says;
CREATE TEMP VIEW tapback AS SELECT NULL AS at, NULL AS who, NULL AS kind, NULL AS about;
CREATE TEMP VIEW renamed AS SELECT NULL AS at, NULL AS who, NULL AS title;

-- The handle of a nickname on a service is made the first time it is needed.
CREATE TEMP TRIGGER make_chat INSTEAD OF INSERT ON chat_of BEGIN
  SELECT RAISE(ABORT, 'a conversation with somebody who is no person')
    FROM json_each('["' || replace(new.people, ' ', '","') || '"]')
   WHERE value NOT IN (SELECT nick FROM person);
  INSERT OR IGNORE INTO handle (id, country, service, uncanonicalized_id)
    SELECT address, country, new.service, NULL
      FROM json_each('["' || replace(new.people, ' ', '","') || '"]')
      JOIN person ON person.nick = value ORDER BY key;
  INSERT INTO chat (guid, style, state, chat_identifier, service_name, room_name, account_login,
                    display_name, group_id, is_filtered, original_group_id)
    SELECT new.guid, CASE WHEN is_group THEN 43 ELSE 45 END, 3, ident, new.service,
           CASE WHEN is_group THEN ident END, 'E:robin@example.com', coalesce(new.title, ''),
           uuid, coalesce(new.filtered, 0), uuid
      FROM (SELECT new.guid LIKE '%;+;%' AS is_group,
                   substr(new.guid, instr(new.guid, ';') + 3) AS ident,
                   printf('C4A70000-0000-4000-8000-%012X',
                          (SELECT count(*) + 1 FROM chat)) AS uuid);
  INSERT INTO casting VALUES (new.nick, (SELECT max(ROWID) FROM chat), new.service);
  INSERT INTO chat_handle_join
    SELECT (SELECT max(ROWID) FROM chat), handle.ROWID
      FROM json_each('["' || replace(new.people, ' ', '","') || '"]')
      JOIN person ON person.nick = value
      JOIN handle ON handle.id = address AND handle.service = new.service ORDER BY key;
END;

CREATE TEMP TRIGGER raise_curtain INSTEAD OF INSERT ON scene BEGIN
  SELECT RAISE(ABORT, 'a scene in a conversation that is not there')
   WHERE new.nick NOT IN (SELECT nick FROM casting) OR date(new.day) IS NOT new.day;
  UPDATE curtain SET (nick, chat, service, day) =
    (SELECT nick, chat, service, new.day FROM casting WHERE casting.nick = new.nick);
END;

-- The one place where a message is made.
CREATE TEMP TRIGGER make_message INSTEAD OF INSERT ON entry BEGIN
  SELECT RAISE(ABORT, 'a line at no time of day') WHERE time(new.at) IS NULL;
  SELECT RAISE(ABORT, 'a line by somebody who is not in the conversation')
   WHERE new.who IS NOT 'me' AND NOT EXISTS (
     SELECT 1 FROM curtain JOIN chat_handle_join j ON j.chat_id = curtain.chat
       JOIN handle ON handle.ROWID = j.handle_id JOIN person ON person.address = handle.id
      WHERE person.nick = new.who);
  INSERT INTO message (guid, text, handle_id, attributedBody, service, account, date, date_read,
                       date_delivered, is_delivered, is_finished, is_from_me, is_read, is_sent,
                       cache_has_attachments, cache_roomnames, item_type, group_title,
                       associated_message_guid, associated_message_type)
    SELECT printf('5A3D0000-0000-4000-8000-%012X', (SELECT count(*) + 1 FROM message)),
           new.says,
           coalesce((SELECT handle.ROWID FROM handle JOIN person ON person.address = handle.id
                      WHERE person.nick = new.who AND handle.service = curtain.service), 0),
           new.body, curtain.service, 'E:robin@example.com', moment,
           CASE WHEN new.is_read AND NOT mine THEN moment + 45000000000 ELSE 0 END,
           CASE WHEN mine THEN moment + 1000000000 ELSE 0 END,
           1, 1, mine, new.is_read AND NOT mine, mine, new.attachments, chat.room_name, new.item,
           new.title, new.about, new.reaction
      FROM curtain JOIN chat ON chat.ROWID = curtain.chat,
           (SELECT new.who = 'me' AS mine,
                   (strftime('%s', (SELECT day FROM curtain) || ' ' || new.at) - 978307200)
                     * 1000000000 AS moment);
  INSERT INTO chat_message_join
    SELECT curtain.chat, ROWID, date FROM curtain, message
     WHERE ROWID = (SELECT max(ROWID) FROM message);
  UPDATE chat SET last_read_message_timestamp =
      (SELECT max(date) FROM message WHERE is_read OR is_from_me)
   WHERE ROWID = (SELECT chat FROM curtain) AND new.is_read;
END;

CREATE TEMP TRIGGER say INSTEAD OF INSERT ON said BEGIN
  INSERT INTO entry VALUES (new.at, new.who, new.says, 1, 0, NULL, NULL, NULL, 0, 0);
END;

CREATE TEMP TRIGGER say_unread INSTEAD OF INSERT ON unread BEGIN
  INSERT INTO entry VALUES (new.at, new.who, new.says, 0, 0, NULL, NULL, NULL, 0, 0);
END;

-- Recent phones often leave the text column empty and write only this archive: a header and two
-- class names, the text after its length in bytes, and one run of attributes after its length in
-- characters. Both lengths fit in one byte here, so the text must be short and without emoji.
CREATE TEMP TRIGGER say_richly INSTEAD OF INSERT ON rich BEGIN
  SELECT RAISE(ABORT, 'a rich line of more than 127 bytes')
   WHERE length(CAST(new.says AS BLOB)) > 127;
  INSERT INTO entry
    SELECT new.at, new.who, NULL, 1, 0, NULL,
           CAST(X'040B73747265616D747970656481E803840140848484124E534174747269627574656453747269'
             || X'6E67008484084E534F626A656374008592848484084E53537472696E67019484012B'
             || char(length(CAST(new.says AS BLOB))) || new.says
             || X'868402694901' || char(length(new.says))
             || X'928484840C4E5344696374696F6E617279009484016901928496961D5F5F6B494D4D6573736167'
             || X'65506172744174747269627574654E616D658692848484084E534E756D626572008484074E5356'
             || X'616C7565009484012A84999900868686'
             AS BLOB),
           NULL, 0, 0;
END;

-- The text holds one mark (U+FFFC) where the picture stands.
CREATE TEMP TRIGGER show_picture INSTEAD OF INSERT ON picture BEGIN
  INSERT INTO entry VALUES
    (new.at, new.who, char(65532) || coalesce(new.says, ''), 1, 0, NULL, NULL, NULL, 0, 1);
  INSERT INTO attachment (guid, created_date, filename, uti, mime_type, transfer_state,
                          is_outgoing, transfer_name, total_bytes, original_guid)
    SELECT uuid, date / 1000000000,
           '~/Library/SMS/Attachments/' || lower(substr(uuid, -2)) || '/' || uuid || '/' || new.file,
           CASE WHEN new.file LIKE '%.png' THEN 'public.png' WHEN new.file LIKE '%.pdf'
                THEN 'com.adobe.pdf' WHEN new.file LIKE '%.m4a' THEN 'com.apple.m4a-audio'
                ELSE 'public.jpeg' END,
           CASE WHEN new.file LIKE '%.png' THEN 'image/png' WHEN new.file LIKE '%.pdf'
                THEN 'application/pdf' WHEN new.file LIKE '%.m4a' THEN 'audio/x-m4a'
                ELSE 'image/jpeg' END,
           5, new.who = 'me', new.file, new.size, uuid
      FROM message,
           (SELECT printf('A77AC400-0000-4000-8000-%012X', (SELECT count(*) + 1 FROM attachment))
                     AS uuid)
     WHERE message.ROWID = (SELECT max(ROWID) FROM message);
  INSERT INTO message_attachment_join VALUES
    ((SELECT max(ROWID) FROM message), (SELECT max(ROWID) FROM attachment));
END;

CREATE TEMP TRIGGER tap_back INSTEAD OF INSERT ON tapback BEGIN
  SELECT RAISE(ABORT, 'a reaction that does not exist, or to no line of the conversation')
   WHERE new.kind NOT IN (SELECT kind FROM reaction) OR NOT EXISTS (
     SELECT 1 FROM message JOIN chat_message_join j ON j.message_id = message.ROWID
      WHERE j.chat_id = (SELECT chat FROM curtain)
        AND substr(text, 1, length(new.about)) = new.about);
  INSERT INTO entry
    SELECT new.at, new.who, verb || ' “' || text || '”', 1, 0, NULL, NULL, 'p:0/' || guid, code, 0
      FROM reaction, message JOIN chat_message_join j ON j.message_id = message.ROWID
     WHERE kind = new.kind AND j.chat_id = (SELECT chat FROM curtain)
       AND substr(text, 1, length(new.about)) = new.about
     ORDER BY message.ROWID DESC LIMIT 1;
END;

-- Such an event is never read, on the phone neither, and must not count as unread.
CREATE TEMP TRIGGER rename_chat INSTEAD OF INSERT ON renamed BEGIN
  INSERT INTO entry VALUES (new.at, new.who, NULL, 0, 2, new.title, NULL, NULL, 0, 0);
  UPDATE chat SET display_name = new.title WHERE ROWID = (SELECT chat FROM curtain);
END;
