#include "util/registry_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <system_error>
#include <utility>
#include <vector>

#include "util/ascii.h"
#include "util/utf16.h"

namespace pv {
namespace {

constexpr std::string_view kHeading = "Windows Registry Editor Version 5.00";
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kHexDigits = "0123456789abcdefABCDEF";
constexpr std::uint32_t kBytesType = 3;

std::string_view trimmed(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

/// The line that starts at `at`, which moves behind the line's end.
std::string_view takeLine(std::string_view text, std::size_t& at) {
  const auto line = text.substr(at, text.find('\n', at) - at);
  at = std::min(at + line.size() + 1, text.size());
  return line;
}

/// The text between the quotes at `at`, which moves behind the second one.
std::optional<std::string> takeQuoted(std::string_view line, std::size_t& at) {
  std::string text;
  for (++at; at < line.size() && line[at] != '"'; ++at) {
    if (line[at] == '\\' && ++at == line.size()) {
      break;
    }
    text += line[at];
  }
  return at++ < line.size() ? std::optional(std::move(text)) : std::nullopt;
}

std::string quoted(std::string_view text) {
  std::string result = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      result += '\\';
    }
    result += c;
  }
  return result += '"';
}

std::optional<std::uint32_t> hexNumber(std::string_view text, std::size_t maxDigits) {
  std::uint32_t number = 0;
  constexpr int kBase = 16;
  const char* end = text.data() + text.size();
  const auto [stop, fault] = std::from_chars(text.data(), end, number, kBase);
  if (fault != std::errc{} || stop != end || text.size() > maxDigits) {
    return std::nullopt;
  }
  return number;
}

/// What follows "hex": an optional type in brackets, a colon, bytes with commas.
std::optional<RegistryValue> hexValue(std::string_view data) {
  std::optional<std::uint32_t> type = kBytesType;
  if (data.starts_with('(')) {
    const auto close = std::min(data.find(')'), data.size());
    type = hexNumber(data.substr(1, close - 1), 8);
    data.remove_prefix(std::min(close + 1, data.size()));
  }
  if (!type || !data.starts_with(':')) {
    return std::nullopt;
  }
  data.remove_prefix(1);
  std::vector<std::byte> bytes;
  while (!data.empty()) {
    const auto part = data.substr(0, data.find(','));
    const auto byte = hexNumber(trimmed(part), 2);
    if (!byte) {
      return std::nullopt;
    }
    bytes.push_back(static_cast<std::byte>(*byte));
    data.remove_prefix(std::min(part.size() + 1, data.size()));
  }
  return registryValue(*type, bytes);
}

std::optional<RegistryValue> parseValue(std::string_view data) {
  constexpr std::string_view kNumber = "dword:";
  constexpr std::string_view kHex = "hex";
  if (data.starts_with('"')) {
    std::size_t at = 0;
    auto text = takeQuoted(data, at);
    if (!text || at != data.size()) {
      return std::nullopt;
    }
    text->resize(std::min(text->find('\0'), text->size()));
    return RegistryValue(std::move(*text));
  }
  if (equalIgnoringCase(data.substr(0, kNumber.size()), kNumber)) {
    const auto number = hexNumber(data.substr(kNumber.size()), 8);
    return number ? std::optional<RegistryValue>(*number) : std::nullopt;
  }
  if (equalIgnoringCase(data.substr(0, kHex.size()), kHex)) {
    return hexValue(data.substr(kHex.size()));
  }
  return std::nullopt;
}

struct Assignment {
  std::string name;
  std::string data;
};

/// "name"=data, or @=data for the key's own value, whose name is empty.
std::optional<Assignment> parseAssignment(std::string_view line) {
  if (!line.starts_with('"') && !line.starts_with('@')) {
    return std::nullopt;
  }
  std::size_t at = 0;
  auto name = line[0] == '@' ? (++at, std::string()) : takeQuoted(line, at);
  line = name ? trimmed(line.substr(at)) : std::string_view{};
  if (!line.starts_with('=')) {
    return std::nullopt;
  }
  return Assignment{std::move(*name), std::string(trimmed(line.substr(1)))};
}

/// Bytes may go on after a backslash at the line's end. A file that was cut off
/// there must not swallow what was appended to it.
void takeContinuation(std::string_view text, std::size_t& at, std::string& data) {
  while (data.ends_with('\\') && !data.starts_with('"')) {
    std::size_t next = at;
    const auto line = trimmed(takeLine(text, next));
    data.pop_back();
    if (line.empty() || kHexDigits.find(line[0]) == std::string_view::npos) {
      return;
    }
    data += line;
    at = next;
  }
}

struct Found {
  bool assigned = false;                   ///< a line sets or removes the value
  std::size_t first = 0;                   ///< where that line starts
  std::size_t last = 0;                    ///< where it ends, its line end excluded
  std::string name;                        ///< as the line spells it
  std::optional<RegistryValue> value;      ///< nothing when the line removes it
  std::optional<std::size_t> sectionLast;  ///< end of the key's last line that says something
};

std::string sectionHeading(std::string_view key) {
  return "[HKEY_CURRENT_USER\\" + std::string(key) + "]";
}

Found search(std::string_view text, std::string_view key, std::string_view name) {
  const std::string heading = sectionHeading(key);
  Found found;
  bool inside = false;
  std::size_t at = text.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0;
  while (at < text.size()) {
    const std::size_t first = at;
    const auto line = trimmed(takeLine(text, at));
    if (line.starts_with('[')) {
      inside = equalIgnoringCase(line, heading);
    }
    if (!inside || line.empty()) {
      continue;
    }
    auto assignment = parseAssignment(line);
    if (assignment) {
      takeContinuation(text, at, assignment->data);
    }
    const std::size_t last = text.find_last_not_of("\r\n", at - 1) + 1;
    found.sectionLast = last;
    if (!assignment || !equalIgnoringCase(assignment->name, name)) {
      continue;
    }
    auto value = parseValue(assignment->data);
    if (value || assignment->data == "-") {
      found.assigned = true;
      found.first = first;
      found.last = last;
      found.name = std::move(assignment->name);
      found.value = std::move(value);
    }
  }
  return found;
}

std::string assignmentText(std::string_view name, std::string_view text) {
  return (name.empty() ? "@" : quoted(name)) + "=" + quoted(text);
}

}  // namespace

std::string registryTextFromBytes(std::span<const std::byte> bytes) {
  constexpr std::array kUtf16Mark{std::byte{0xFF}, std::byte{0xFE}};
  if (bytes.size() >= kUtf16Mark.size() &&
      std::equal(kUtf16Mark.begin(), kUtf16Mark.end(), bytes.begin())) {
    return utf8FromUtf16(bytes.subspan(kUtf16Mark.size()));
  }
  std::string text(bytes.size(), '\0');
  std::transform(bytes.begin(), bytes.end(), text.begin(),
                 [](std::byte byte) { return static_cast<char>(byte); });
  return text;
}

std::optional<RegistryValue> findRegistryValue(std::string_view fileText, std::string_view key,
                                               std::string_view name) {
  return search(fileText, key, name).value;
}

std::string withRegistryString(std::string_view fileText, std::string_view key,
                               std::string_view name, std::string_view text) {
  std::string result(fileText);
  const Found found = search(fileText, key, name);
  if (found.assigned) {
    return result.replace(found.first, found.last - found.first, assignmentText(found.name, text));
  }
  const std::string lineEnd = fileText.find("\r\n") != std::string_view::npos ? "\r\n" : "\n";
  const std::string line = assignmentText(name, text);
  if (found.sectionLast) {
    return result.insert(*found.sectionLast, lineEnd + line);
  }
  if (trimmed(fileText).empty()) {
    result += kHeading;
  }
  if (!result.ends_with('\n')) {
    result += lineEnd;
  }
  return result += lineEnd + sectionHeading(key) + lineEnd + line + lineEnd;
}

}  // namespace pv
