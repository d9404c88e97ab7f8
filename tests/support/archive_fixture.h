#pragma once
// A fixture for the tests of the archive: a temporary DataDirectory over a file layer that can be
// told to fail, a scripted prompter and today fixed at 21/11/2026.

#include <gtest/gtest.h>

#include "archive/data_directory.h"
#include "archive/session.h"
#include "common/clock.h"
#include "tests/support/archive_bytes.h"
#include "tests/support/faulty_file_layer.h"
#include "tests/support/scripted_prompter.h"
#include "tests/support/temp_folder.h"

namespace contavia::test {

class ArchiveTest : public ::testing::Test {
 protected:
  TempFolder folder;
  FaultyFileLayer files;  // the real file system until told to fail
  ScriptedPrompter prompter;
  FixedClock clock{CalendarDate{21, 11, 2026}};
  DataDirectory dir{files, folder.path()};

  // A session on the folder, started (master tables loaded).
  Session startedSession() {
    Session session(files, prompter, clock, folder.path());
    session.start();
    return session;
  }
};

}  // namespace contavia::test
