// The program `rollwick`: the terminal, Ctrl-C, and the window when nothing else was asked for.
#include <unistd.h>

#include <array>
#include <atomic>
#include <climits>
#include <clocale>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>

#include "console/Console.h"

namespace {

// The one thing a signal may touch.
std::atomic<bool> interrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free);

void Interrupt(int) {
  interrupted = true;
}

void CatchInterrupts() {
  struct sigaction action {};
  action.sa_handler = Interrupt;
  sigemptyset(&action.sa_mask);
  sigaction(SIGINT, &action, nullptr);  // without SA_RESTART: a wait for input ends too
  std::signal(SIGXFSZ, SIG_IGN);        // a file at its limit is an error to tell, like a full disk
}

bool HasDisplay() {
  const auto isSet = [](const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr && *value != '\0';
  };
  return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY");
}

// The window takes this process over, when it is there; returns when it is not.
void StartTable() {
  std::array<char, PATH_MAX> self{};
  std::string name = "rollwick-table";
  char* const noArguments[] = {name.data(), nullptr};
  const ssize_t length = readlink("/proc/self/exe", self.data(), self.size() - 1);
  if (length > 0) {
    const std::string program(self.data(), static_cast<std::size_t>(length));
    execv((program.substr(0, program.rfind('/') + 1) + name).c_str(), noArguments);
  }
  execvp(name.c_str(), noArguments);
}

}  // namespace

int main(int count, char** arguments) {
  const std::vector<std::string> words(arguments + (count > 0 ? 1 : 0), arguments + count);
  if (words.empty() && HasDisplay()) StartTable();

  std::setlocale(LC_CTYPE, "");  // for what is typed; numbers never follow the locale
  std::ios::sync_with_stdio(false);
  CatchInterrupts();
  const bool isInteractive = isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0;
  const rollwick::Terminal terminal{std::cin,    std::cout,     std::cerr,
                                    interrupted, isInteractive, isatty(STDERR_FILENO) != 0};
  try {
    return rollwick::RunConsole(words, terminal);
  } catch (const std::exception& error) {
    std::cerr << "rollwick: " << error.what() << std::endl;
    return rollwick::ExitFailure;
  }
}
