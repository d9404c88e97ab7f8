// contavia-cli [--dati DIR] [--oggi GG/MM/AAAA] [--si] COMMAND [ARGS...]

#include <unistd.h>

#include <iostream>
#include <string>
#include <vector>

#include "archive/data_directory.h"
#include "archive/file_layer.h"
#include "archive/session.h"
#include "cli/command.h"
#include "cli/terminal_prompter.h"
#include "common/clock.h"
#include "common/dates.h"

namespace contavia::cli {
namespace {

void printUsage(std::ostream& out) {
  out << "Uso: contavia-cli [--dati CARTELLA] [--oggi GG/MM/AAAA] [--si] COMANDO [ARGOMENTI...]\n"
         "\n"
         "Opzioni:\n"
         "  --dati CARTELLA    cartella dell'archivio (predefinita: dati/ accanto al programma o,\n"
         "                     se lì non si può scrivere, ~/.local/share/Contavia/dati/)\n"
         "  --oggi GG/MM/AAAA  data da usare come oggi (predefinita: CONTAVIA_OGGI, poi la data "
         "di sistema)\n"
         "  --si               risponde OK a ogni richiesta di conferma\n"
         "\n"
         "Comandi:\n";
  for (const CommandInfo& c : commands()) {
    out << "  " << c.name << (c.usage[0] != '\0' ? " " : "") << c.usage << "\n      " << c.summary
        << "\n";
  }
  out << "\n'contavia-cli COMANDO --help' mostra l'uso di un comando.\n";
}

const CommandInfo* findCommand(const std::string& name) {
  for (const CommandInfo& c : commands()) {
    if (name == c.name) {
      return &c;
    }
  }
  return nullptr;
}

int run(int argc, char** argv) {
  std::vector<std::string> args(argv + 1, argv + argc);
  std::string folder = DataDirectory::defaultFolder();
  std::optional<CalendarDate> today;
  bool yesToAll = false;
  std::size_t i = 0;
  try {
    for (; i < args.size() && args[i].starts_with("--"); ++i) {
      const std::string& a = args[i];
      if (a == "--help") {
        printUsage(std::cout);
        return kExitDone;
      }
      if (a == "--si") {
        yesToAll = true;
      } else if (a == "--dati" || a == "--oggi") {
        if (i + 1 >= args.size()) {
          throw UsageError("l'opzione " + a + " richiede un valore");
        }
        const std::string& value = args[++i];
        if (a == "--dati") {
          folder = value;
        } else {
          today = parseDate(requireDate(value));
        }
      } else {
        throw UsageError("opzione sconosciuta: " + a);
      }
    }
    if (i >= args.size()) {
      throw UsageError("manca il comando ('contavia-cli --help' per l'elenco)");
    }
    const CommandInfo* command = findCommand(args[i]);
    if (command == nullptr) {
      throw UsageError("comando sconosciuto: " + args[i]);
    }
    const std::vector<std::string> commandArgs(args.begin() + static_cast<long>(i) + 1, args.end());
    for (const std::string& a : commandArgs) {
      if (a == "--help") {
        std::cout << "Uso: contavia-cli " << command->name << " " << command->usage << "\n"
                  << command->summary << "\n";
        return kExitDone;
      }
    }
    OsFileLayer files;
    SystemClock clock = today ? SystemClock(*today) : SystemClock();
    TerminalPrompter prompter(std::cin, std::cerr, ::isatty(0) != 0, yesToAll);
    Session session(files, prompter, clock, folder, "contavia-cli");
    Context context{session, std::cout, std::cerr, commandArgs};
    return command->run(context);
  } catch (const UsageError& e) {
    std::cerr << "contavia-cli: " << e.what() << "\n";
    return kExitUsage;
  }
}

}  // namespace
}  // namespace contavia::cli

int main(int argc, char** argv) { return contavia::cli::run(argc, argv); }
