#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace pv {

/// What kind of thing went wrong; the command line turns it into its exit status.
enum class ErrorKind : std::uint8_t {
  BadData,       ///< the contents break the format's rules
  NoInput,       ///< the file is missing or cannot be opened for reading
  CannotCreate,  ///< the target cannot be created or replaced
  InputOutput,   ///< reading or writing failed half way
};

struct Error {
  ErrorKind kind = ErrorKind::BadData;
  std::string file;                     ///< empty when no file is concerned
  std::optional<std::uint64_t> offset;  ///< byte where the fault was found
  std::string reason;                   ///< one sentence part, no full stop

  /// "file: byte 12: reason" with the parts that are known.
  [[nodiscard]] std::string message() const {
    std::string text = file.empty() ? "" : file + ": ";
    if (offset) {
      text += "byte " + std::to_string(*offset) + ": ";
    }
    return text + reason;
  }
};

/// A value or the reason why there is none.
template <class T>
class [[nodiscard]] Result {
 public:
  Result(T value) : state_(std::in_place_index<0>, std::move(value)) {}
  Result(Error error) : state_(std::in_place_index<1>, std::move(error)) {}

  [[nodiscard]] bool ok() const { return state_.index() == 0; }
  explicit operator bool() const { return ok(); }

  /// Only after ok() said true.
  [[nodiscard]] const T& value() const { return *std::get_if<0>(&state_); }
  [[nodiscard]] T& value() { return *std::get_if<0>(&state_); }

  /// Only after ok() said false.
  [[nodiscard]] const Error& error() const { return *std::get_if<1>(&state_); }

 private:
  std::variant<T, Error> state_;
};

struct Done {};

/// The result of an operation that yields nothing.
using Status = Result<Done>;

}  // namespace pv
