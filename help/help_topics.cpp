#include "help/help_topics.h"

#include <algorithm>
#include <array>
#include <utility>

#include "common/text.h"
#include "help/html_text.h"

namespace contavia::help {
namespace {

constexpr std::array<HelpTopic, 5> kTopics = {{
    {"Per cominciare.rtf", "Per cominciare"},
    {"introduzione.rtf", "Introduzione"},
    {"le procedure.rtf", "Le procedure"},
    {"pianoconti.rtf", "Il piano dei conti"},
    {"Help_carta.rtf", "Stampe e carta"},
}};

constexpr const char* kProcedures = "le procedure.rtf";
constexpr const char* kPaper = "Help_carta.rtf";

// The windows that have a page of their own, by control name.
constexpr std::array<std::pair<const char*, std::pair<const char*, const char*>>, 14> kWindows = {{
    {"MDIForm1", {kProcedures, "finestra_principale"}},
    {"Form9", {kProcedures, "movimenti"}},
    {"FORM12", {kProcedures, "movimenti"}},
    {"Form6", {kProcedures, "causali"}},
    {"Form4", {kProcedures, "gruppi"}},
    {"Form1", {kProcedures, "categorie"}},
    {"Form2", {kProcedures, "conti"}},
    {"Form3", {kProcedures, "totale_movimenti"}},
    {"Form22", {kProcedures, "totale_conti"}},
    {"Form19", {kProcedures, "chiusura"}},
    {"Form18", {kProcedures, "copie"}},
    {"Form21", {kPaper, "stampa_archivi"}},
    {"Anteprima", {kPaper, "anteprima"}},
    {"Guida", {kTopics[0].file, ""}},
}};

// "%20" and the like back to the characters they stand for.
std::string percentDecoded(std::string_view text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%' && i + 2 < text.size() && hexDigitValue(text[i + 1]) >= 0 &&
        hexDigitValue(text[i + 2]) >= 0) {
      out += static_cast<char>(hexDigitValue(text[i + 1]) * 16 + hexDigitValue(text[i + 2]));
      i += 2;
    } else {
      out += text[i];
    }
  }
  return out;
}

}  // namespace

std::span<const HelpTopic> helpTopics() { return kTopics; }

HelpPage homePage() { return {kTopics[0].file, ""}; }

HelpPage pageOfWindow(const std::vector<std::string>& windows) {
  for (const std::string& name : windows) {
    for (const auto& [window, page] : kWindows) {
      if (name == window) {
        return {page.first, page.second};
      }
    }
  }
  return homePage();
}

HelpLink followLink(std::string_view href, const HelpPage& from) {
  const bool outside = href.find("://") != std::string_view::npos || href.starts_with("mailto:");
  if (outside) {
    return {HelpLink::Kind::Outside, {}, std::string(href)};
  }
  const std::size_t hash = href.find('#');
  const std::string file = percentDecoded(href.substr(0, hash));
  const std::string bookmark =
      hash == std::string_view::npos ? std::string() : percentDecoded(href.substr(hash + 1));
  if (file.empty()) {
    return {HelpLink::Kind::Page, {from.topic, bookmark}, {}};
  }
  for (const HelpTopic& topic : kTopics) {
    if (equalsIgnoringCase(file, topic.file)) {
      return {HelpLink::Kind::Page, {topic.file, bookmark}, {}};
    }
  }
  return {HelpLink::Kind::Missing, {}, file};
}

std::string missingTopicHtml(std::string_view topic) {
  return "<p>L'argomento \xC2\xAB" + htmlEscaped(topic) +
         "\xC2\xBB non si trova nella cartella della guida.</p>";
}

std::string notFoundText(std::string_view searched) {
  return "Nessun risultato per \xC2\xAB" + std::string(searched) + "\xC2\xBB.";
}

}  // namespace contavia::help
