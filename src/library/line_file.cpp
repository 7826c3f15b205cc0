#include "library/line_file.h"

#include <span>

#include "util/files.h"
#include "util/program_path.h"

namespace pv {
namespace {

/// Writing in text mode, everywhere alike.
std::string withCrLf(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (const char c : text) {
    if (c == '\n') {
      result += '\r';
    }
    result += c;
  }
  return result;
}

}  // namespace

bool CLineFile::readLines(std::string_view path, std::vector<std::string>& lines) {
  lines.clear();
  const std::string chosen = chosenPath(FileUse::Open, path);
  if (chosen.empty()) {
    return false;
  }
  const auto bytes = readFile(hostPath(chosen), kMaxLineFileBytes + 1);
  if (!bytes) {
    return fail(bytes.error().message());
  }
  if (bytes.value().size() > kMaxLineFileBytes) {
    return fail(chosen + ": the file is too large");
  }
  const auto* const data = reinterpret_cast<const char*>(bytes.value().data());
  std::string_view rest(data, bytes.value().size());
  while (!rest.empty()) {
    const auto end = rest.find('\n');
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    if (end != std::string_view::npos && line.ends_with('\r')) {
      line.remove_suffix(1);
    }
    lines.emplace_back(line);
  }
  return true;
}

bool CLineFile::writeLines(std::string_view path, const std::vector<std::string>& lines) {
  std::string text;
  for (const auto& line : lines) {
    text += lineStart_;
    text += line;
    text += lineEnd_;
  }
  return writeText(path, text);
}

bool CLineFile::writeText(std::string_view path, std::string_view text) {
  const std::string chosen = chosenPath(FileUse::Save, path);
  if (chosen.empty()) {
    return false;
  }
  const std::string content = withCrLf(text);
  const auto written = writeFile(hostPath(chosen), std::as_bytes(std::span(content)));
  return written ? true : fail(written.error().message());
}

// A class that asks somebody has a use for both.
std::string CLineFile::askFileName(FileUse /*use*/, std::string_view /*nameSoFar*/) {
  return {};
}

bool CLineFile::fail(std::string text) {
  errorText_ = std::move(text);
  return false;
}

std::string CLineFile::chosenPath(FileUse use, std::string_view path) {
  std::string chosen = path.empty() ? askFileName(use, path) : std::string(path);
  if (chosen.empty()) {
    fail("there is no file name");
  }
  return chosen;
}

}  // namespace pv
