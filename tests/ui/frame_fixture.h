#pragma once
// The desktop program started on a data folder that a window test writes first: the session,
// the main frame shown and active, every message answered by a scripted prompter, today fixed at
// 21/11/2026.

#include <QApplication>
#include <QTest>
#include <memory>
#include <string>

#include "archive/file_layer.h"
#include "archive/session.h"
#include "common/clock.h"
#include "tests/support/scripted_prompter.h"
#include "tests/support/temp_folder.h"
#include "ui/main_window.h"

namespace contavia::test {

struct FrameFixture {
  TempFolder temp;
  OsFileLayer files;
  ScriptedPrompter prompter;
  FixedClock clock{CalendarDate{21, 11, 2026}};
  std::unique_ptr<Session> session;
  std::unique_ptr<ui::MainWindow> frame;

  // Starts the program on the folder, or on `sub` in it; `prepare` sets the frame's dialogs
  // before it shows.
  template <class Prepare>
  void startProgram(const std::string& sub, Prepare prepare) {
    session = std::make_unique<Session>(files, prompter, clock, temp.path() + sub);
    session->start();
    frame = std::make_unique<ui::MainWindow>(*session);
    prepare(*frame);
    frame->show();
    QApplication::setActiveWindow(frame.get());
    if (!QTest::qWaitForWindowActive(frame.get())) {
      qFatal("the frame did not become active");
    }
  }
  void startProgram(const std::string& sub = "") {
    startProgram(sub, [](ui::MainWindow&) {});
  }
};

}  // namespace contavia::test
