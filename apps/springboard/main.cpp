// zephyls-springboard: the owner of the groups file, on the message bus of the session.

#include <QCoreApplication>
#include <exception>
#include <iostream>

#include <sys/stat.h>

#include "apps/common/CommandError.h"
#include "apps/springboard/Shell.h"
#include "apps/springboard/ShellOptions.h"

int main(int argc, char** argv) {
  using namespace zephyl::app;
  const ParsedShellOptions parsed = parseShellOptions(argc, argv);
  if (parsed.exitStatus) {
    return *parsed.exitStatus;
  }
  // What is made is for the user alone.
  umask(S_IRWXG | S_IRWXO);
  const QCoreApplication application(argc, argv);
  try {
    Shell shell(parsed.options);
    return shell.run();
  } catch (const CommandError& error) {
    std::cerr << "zephyls-springboard: " << error.what() << '\n';
    return error.status();
  } catch (const std::exception& error) {
    std::cerr << "zephyls-springboard: " << error.what() << '\n';
    return kBadData;
  }
}
