// The topics of the guide as shipped, and where their links and the windows lead.

#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <sstream>
#include <string>

#include "help/help_topics.h"
#include "help/page_history.h"
#include "help/rtf_reader.h"

namespace contavia::help {
namespace {

std::string topicHtml(const std::string& file) {
  std::ifstream in(std::string(CONTAVIA_GUIDE) + file, std::ios::binary);
  std::stringstream bytes;
  bytes << in.rdbuf();
  EXPECT_TRUE(in.good()) << file;
  return rtfToHtml(bytes.str()).html;
}

bool hasBookmark(const HelpPage& page) {
  return page.bookmark.empty() ||
         topicHtml(page.topic).find("<a name=\"" + page.bookmark + "\">") != std::string::npos;
}

// Every topic reads whole, and every link of it and every window's page lead to a place that is
// there.
TEST(Guide, TopicsReadWholeAndTheirLinksLeadSomewhere) {
  for (const HelpTopic& topic : helpTopics()) {
    SCOPED_TRACE(topic.file);
    std::ifstream in(std::string(CONTAVIA_GUIDE) + topic.file, std::ios::binary);
    std::stringstream bytes;
    bytes << in.rdbuf();
    const RtfPage page = rtfToHtml(bytes.str());
    EXPECT_EQ(page.unknownWords, std::vector<std::string>{});
    EXPECT_EQ(page.droppedCharacters, 0U);
    const std::regex link("<a href=\"([^\"]*)\">");
    int links = 0;
    for (std::sregex_iterator it(page.html.begin(), page.html.end(), link), end; it != end;
         ++it, ++links) {
      const HelpLink to = followLink((*it)[1].str(), {topic.file, ""});
      SCOPED_TRACE((*it)[1].str());
      if (to.kind != HelpLink::Kind::Outside) {
        ASSERT_EQ(to.kind, HelpLink::Kind::Page);
        EXPECT_TRUE(hasBookmark(to.page));
      }
    }
    EXPECT_GT(links, 0);
  }
  for (const char* window : {"MDIForm1", "Form9", "FORM12", "Form6", "Form4", "Form1", "Form2",
                             "Form3", "Form22", "Form19", "Form18", "Form21", "Anteprima"}) {
    SCOPED_TRACE(window);
    const HelpPage page = pageOfWindow({window});
    EXPECT_FALSE(page.bookmark.empty());
    EXPECT_TRUE(hasBookmark(page));
  }
}

TEST(Guide, LinksAndWindowsLeadToTheirPages) {
  const HelpPage from{"pianoconti.rtf", ""};
  struct Case {
    const char* href;
    HelpLink::Kind kind;
    HelpPage page;
  };
  const Case cases[] = {
      {"le%20procedure.rtf#movimenti", HelpLink::Kind::Page, {"le procedure.rtf", "movimenti"}},
      {"INTRODUZIONE.RTF", HelpLink::Kind::Page, {"introduzione.rtf", ""}},
      {"#esempio", HelpLink::Kind::Page, {"pianoconti.rtf", "esempio"}},
      {"https://www.example.org/a", HelpLink::Kind::Outside, {}},
      {"mailto:aiuto@example.org", HelpLink::Kind::Outside, {}},
      {"altro.rtf", HelpLink::Kind::Missing, {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.href);
    const HelpLink link = followLink(c.href, from);
    EXPECT_EQ(link.kind, c.kind);
    EXPECT_EQ(link.page, c.page);
  }
  // A message box has no page: the window that shows it decides; nothing known, the home page.
  EXPECT_EQ(pageOfWindow({"qt_msgbox", "Form2", "MDIForm1"}),
            (HelpPage{"le procedure.rtf", "conti"}));
  EXPECT_EQ(pageOfWindow({"qt_msgbox"}), homePage());
}

TEST(Guide, BackAndForwardAsABrowserKeepsThem) {
  PageHistory history;
  const HelpPage a{"a", ""}, b{"b", ""}, c{"c", "x"};
  history.visit(a);
  history.visit(b);
  history.visit(b);  // the same page again is not a new step
  EXPECT_EQ(history.back(), a);
  EXPECT_FALSE(history.canGoBack());
  EXPECT_EQ(history.forward(), b);
  EXPECT_FALSE(history.canGoForward());
  history.back();
  history.visit(c);  // a new page forgets what was ahead
  EXPECT_FALSE(history.canGoForward());
  EXPECT_EQ(history.back(), a);
  EXPECT_EQ(history.forward(), c);
}

}  // namespace
}  // namespace contavia::help
