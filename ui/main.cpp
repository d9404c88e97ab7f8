// contavia: the desktop program.

#include <QApplication>
#include <QIcon>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "archive/data_directory.h"
#include "archive/file_layer.h"
#include "archive/session.h"
#include "common/clock.h"
#include "ui/main_window.h"
#include "ui/message_box_prompter.h"
#include "ui/widget_helpers.h"

namespace {

// Qt aborts when it cannot reach a display; say so plainly instead.
bool displayAvailable() {
  const char* platform = std::getenv("QT_QPA_PLATFORM");
  if (platform != nullptr && *platform != '\0') {
    return true;
  }
  const char* x11 = std::getenv("DISPLAY");
  const char* wayland = std::getenv("WAYLAND_DISPLAY");
  return (x11 != nullptr && *x11 != '\0') || (wayland != nullptr && *wayland != '\0');
}

}  // namespace

int main(int argc, char** argv) {
  if (!displayAvailable()) {
    std::fprintf(stderr,
                 "contavia: nessuno schermo disponibile (la variabile DISPLAY non è impostata).\n"
                 "Avviare il programma da una sessione grafica, oppure usare contavia-cli.\n");
    return 1;
  }
  QApplication app(argc, argv);
  QApplication::setApplicationName("Contavia");
  contavia::ui::loadItalianTranslations(app);
  QApplication::setWindowIcon(
      QIcon::fromTheme("contavia", QIcon(contavia::ui::programFile("contavia.png"))));

  contavia::OsFileLayer files;
  contavia::SystemClock clock;
  contavia::ui::MessageBoxPrompter prompter;
  // "--dati CARTELLA" starts on another data folder, as "Percorso archivi" would.
  std::string folder = contavia::DataDirectory::defaultFolder();
  const QStringList args = QApplication::arguments();
  const qsizetype at = args.indexOf("--dati");
  if (at >= 0 && at + 1 < args.size()) {
    folder = args[at + 1].toStdString();
  }
  contavia::Session session(files, prompter, clock, folder);
  if (!session.start()) {
    return 1;  // the folder is in use by another program: the message said so
  }

  contavia::ui::MainWindow window(session);
  prompter.setParent(&window);
  window.show();
  return QApplication::exec();
}
