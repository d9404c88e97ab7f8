#include "tests/support/temp_folder.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace contavia::test {

namespace fs = std::filesystem;

TempFolder::TempFolder() {
  std::string pattern = (fs::temp_directory_path() / "contavia-test-XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr) {
    throw std::runtime_error("mkdtemp failed");
  }
  path_ = pattern + "/";
}

TempFolder::~TempFolder() {
  std::error_code ec;
  fs::permissions(path_, fs::perms::owner_all, fs::perm_options::add, ec);
  fs::remove_all(path_, ec);
}

Bytes TempFolder::read(std::string_view name) const {
  std::ifstream in(file(name), std::ios::binary);
  return Bytes(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void TempFolder::write(std::string_view name, const Bytes& bytes) const {
  std::ofstream out(file(name), std::ios::binary | std::ios::trunc);
  out.write(reinterpret_cast<const char*>(bytes.data()),
            static_cast<std::streamsize>(bytes.size()));
}

bool TempFolder::exists(std::string_view name) const { return fs::exists(file(name)); }

std::vector<std::string> TempFolder::names() const {
  std::vector<std::string> out;
  for (const auto& entry : fs::directory_iterator(path_)) {
    // The lock of the program under test is not part of the archive.
    if (entry.path().filename() != "contavia.lock") {
      out.push_back(entry.path().filename().string());
    }
  }
  std::sort(out.begin(), out.end());
  return out;
}

Bytes le16(int value) {
  const auto v = static_cast<std::uint16_t>(value);
  return {static_cast<std::uint8_t>(v & 0xFF), static_cast<std::uint8_t>(v >> 8)};
}

Bytes le32(std::int32_t value) {
  const auto v = static_cast<std::uint32_t>(value);
  return {static_cast<std::uint8_t>(v & 0xFF), static_cast<std::uint8_t>((v >> 8) & 0xFF),
          static_cast<std::uint8_t>((v >> 16) & 0xFF), static_cast<std::uint8_t>(v >> 24)};
}

Bytes f64(double value) {
  std::uint64_t v = 0;
  std::memcpy(&v, &value, sizeof v);
  Bytes out;
  for (int i = 0; i < 8; ++i) {
    out.push_back(static_cast<std::uint8_t>((v >> (8 * i)) & 0xFF));
  }
  return out;
}

Bytes text(std::string_view latin1, std::size_t width) {
  Bytes out(latin1.begin(), latin1.end());
  out.resize(width, ' ');
  return out;
}

Bytes zeros(std::size_t n) { return Bytes(n, 0); }

Bytes cat(std::initializer_list<Bytes> parts) {
  Bytes out;
  for (const Bytes& p : parts) {
    out.insert(out.end(), p.begin(), p.end());
  }
  return out;
}

}  // namespace contavia::test
