#pragma once
// The topics of the guide, the page that explains each window, and where a link of a page leads.

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace contavia::help {

struct HelpTopic {
  const char* file;   // the rich-text file in the guide's folder
  const char* title;  // as the list of topics shows it
};

// The five topics, in reading order; the first is the home page.
std::span<const HelpTopic> helpTopics();
// The folder of the topics, beside the program (or in its shared data when installed).
inline constexpr const char* kGuideFolder = "guida/";

// A page of the guide: a topic and, when set, a bookmark in it.
struct HelpPage {
  std::string topic;  // its file name
  std::string bookmark;
  bool operator==(const HelpPage&) const = default;
};

HelpPage homePage();
// The page that explains a window. `windows` are the control names from the window the user is
// in outwards (a message, the dialog that shows it, the main window); the first with a page of
// its own decides, and the home page explains any other.
HelpPage pageOfWindow(const std::vector<std::string>& windows);

// Where a link of the page `from` leads.
struct HelpLink {
  enum class Kind {
    Page,     // a page of the guide
    Outside,  // an address for the user's browser (http, https, mailto)
    Missing,  // a file that is not a topic of the guide
  };
  Kind kind;
  HelpPage page;        // for Page
  std::string address;  // for Outside and Missing, as written
};
HelpLink followLink(std::string_view href, const HelpPage& from);

// The text shown in place of a topic whose file cannot be read, in HTML.
std::string missingTopicHtml(std::string_view topic);
// The text shown when a search finds nothing.
std::string notFoundText(std::string_view searched);

}  // namespace contavia::help
