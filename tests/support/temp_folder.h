#pragma once
// A temporary data folder for one test, removed at the end, and helpers that read and write
// its files as raw bytes (tests build their expected bytes by hand, not with the code under
// test).

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace contavia::test {

using Bytes = std::vector<std::uint8_t>;

class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  // The folder, ending with "/".
  const std::string& path() const { return path_; }
  std::string file(std::string_view name) const { return path_ + std::string(name); }

  Bytes read(std::string_view name) const;
  void write(std::string_view name, const Bytes& bytes) const;
  bool exists(std::string_view name) const;
  // Sorted names of the files in the folder, but the lock file "contavia.lock".
  std::vector<std::string> names() const;

 private:
  std::string path_;
};

// Little-endian and Windows-1252 pieces for records written by hand.
Bytes le16(int value);
Bytes le32(std::int32_t value);
Bytes f64(double value);
// Latin-1 / Windows-1252 text given as bytes, padded with blanks to `width`.
Bytes text(std::string_view latin1, std::size_t width);
Bytes zeros(std::size_t n);
Bytes cat(std::initializer_list<Bytes> parts);

}  // namespace contavia::test
