// zephyls: the conversations of a Messages database by group, on the command line.

#include <QApplication>
#include <QCoreApplication>
#include <exception>
#include <iostream>
#include <memory>

#include "apps/common/CommandError.h"
#include "apps/zephyls/CommandLine.h"
#include "apps/zephyls/Output.h"
#include "apps/zephyls/Session.h"
#include "hosts/linux/screen/QtMessages.h"

namespace zephyl::app {

namespace {

// A command that draws needs Qt's screen, of which nobody sees anything.
std::unique_ptr<QCoreApplication> makeApplication(const ParsedCommandLine& commandLine, int& argc,
                                                  char** argv) {
  if (commandLine.screenCommand == nullptr) {
    return std::make_unique<QCoreApplication>(argc, argv);
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  linux_host::leaveOutQtRemarks();
  return std::make_unique<QApplication>(argc, argv);
}

int run(const ParsedCommandLine& commandLine, Output& output) {
  try {
    if (commandLine.screenCommand != nullptr) {
      return commandLine.screenCommand(commandLine.options, output);
    }
    Session session(commandLine.options, output);
    return commandLine.command(session, output);
  } catch (const CommandError& error) {
    output.complain(error.what());
    return error.status();
  } catch (const std::exception& error) {
    // What the standard library throws, such as for want of memory.
    output.complain(error.what());
    return kBadData;
  }
}

}  // namespace

// Gives the exit status of the process.
int runCommandLine(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  const ParsedCommandLine commandLine = parseCommandLine(argc, argv);
  if (commandLine.exitStatus) {
    return *commandLine.exitStatus;
  }
  const auto application = makeApplication(commandLine, argc, argv);
  Output output(std::cout, std::cerr, commandLine.options.json);
  const int status = run(commandLine, output);
  if (!output.finish()) {
    output.complain("cannot write to the standard output");
    return kBadData;
  }
  return status;
}

}  // namespace zephyl::app

int main(int argc, char** argv) {
  return zephyl::app::runCommandLine(argc, argv);
}
