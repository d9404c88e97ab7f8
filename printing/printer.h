#pragma once
// The seam every report prints through: fonts by name and size (the size as text, "9,75" with the
// decimal comma), bold on or off, one text line at a time, a new page, the end of the document.
// A text printer serves the command line and the tests; the desktop program draws the same pages.

#include <string>
#include <string_view>
#include <vector>

namespace contavia {

class Printer {
 public:
  virtual ~Printer() = default;
  virtual void setFont(const std::string& name, const std::string& sizeText) = 0;
  virtual void setBold(bool bold) = 0;
  virtual void printLine(const std::string& text) = 0;
  virtual void newPage() = 0;
  virtual void endDoc() = 0;
};

// The points of a font size written as text: "18", "9,75".
double fontPoints(std::string_view sizeText);

// The printed lines as text: one line per printed line, a line holding only a form feed between
// pages; fonts leave no trace.
class TextPrinter final : public Printer {
 public:
  void setFont(const std::string&, const std::string&) override {}
  void setBold(bool) override {}
  void printLine(const std::string& text) override { lines_.push_back(text); }
  void newPage() override { lines_.emplace_back("\f"); }
  void endDoc() override { ended_ = true; }

  const std::vector<std::string>& lines() const { return lines_; }
  bool ended() const { return ended_; }

 private:
  std::vector<std::string> lines_;
  bool ended_ = false;
};

}  // namespace contavia
