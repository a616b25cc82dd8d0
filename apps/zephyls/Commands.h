// The commands: each starts what it needs of the session, prints its answer and gives the exit
// status. Bad data is thrown as CommandError.

#pragma once

namespace zephyl::app {

class Output;
class Session;

// The groups, each user group with its conversations.
int showOverview(Session& session, Output& output);

int listConversations(Session& session, Output& output);
int listGroups(Session& session, Output& output);
int showGroup(Session& session, Output& output);
// Changes of groups: each tells what is different now.
int createGroup(Session& session, Output& output);
int editGroup(Session& session, Output& output);
int deleteGroups(Session& session, Output& output);
int enableGroups(Session& session, Output& output);
int disableGroups(Session& session, Output& output);
int activateGroup(Session& session, Output& output);
int addMembers(Session& session, Output& output);
int removeMembers(Session& session, Output& output);

// Groups as a file for another device.
int exportGroups(Session& session, Output& output);
int importGroups(Session& session, Output& output);

int showUnread(Session& session, Output& output);
int listContacts(Session& session, Output& output);

int listSettings(Session& session, Output& output);
int getSetting(Session& session, Output& output);
int setSetting(Session& session, Output& output);

// Which groups a conversation belongs to and by what, and which hide it.
int explainConversation(Session& session, Output& output);

// What is wrong with the user's files, where, and what to do about it.
int checkEverything(Session& session, Output& output);

}  // namespace zephyl::app
