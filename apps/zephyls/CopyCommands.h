// The commands about the safety copies of the groups file.

#pragma once

namespace zephyl::app {

class Output;
class Session;

// The newest first, each with its time, its number of groups and what came after it.
int listCopies(Session& session, Output& output);

// Makes the groups what a copy holds; those of now become a copy first.
int restoreCopy(Session& session, Output& output);

}  // namespace zephyl::app
