// Field values as text and as numbers.

#include <algorithm>
#include <bit>

#include "shape/shape_fields.h"
#include "util/ascii.h"
#include "util/number_text.h"

namespace pv {

namespace {

// "grid" of "gridPatch".
std::string_view shortName(std::string_view name) {
  const auto capital =
      std::find_if(name.begin(), name.end(), [](char c) { return c != asciiLower(c); });
  return name.substr(0, static_cast<std::size_t>(capital - name.begin()));
}

std::string withoutSeparators(std::string_view text) {
  std::string joined(text);
  std::erase_if(joined, [](char c) { return c == ' ' || c == '-' || c == '_'; });
  return joined;
}

Result<std::uint32_t> parseName(const ShapeField& field, std::string_view text) {
  const std::string wanted = withoutSeparators(text);
  std::string all;
  for (std::size_t i = 0; i < field.names.size(); ++i) {
    const std::string_view name = field.names[i];
    if (equalIgnoringCase(wanted, name) || equalIgnoringCase(wanted, shortName(name))) {
      return static_cast<std::uint32_t>(i);
    }
    all += (i == 0 ? "" : ", ") + std::string(name);
  }
  const auto number = parseNumber<std::uint32_t>(text);
  if (number && number.value() < field.names.size()) {
    return number.value();
  }
  return Error{ErrorKind::BadData, {}, {}, "'" + std::string(text) + "' is none of " + all};
}

Result<std::uint32_t> parseInteger(std::string_view text) {
  const auto number = parseNumber<std::int32_t>(text);
  if (!number) {
    return number.error();
  }
  return static_cast<std::uint32_t>(number.value());
}

std::optional<std::uint32_t> parseTruth(std::string_view text) {
  for (const std::string_view word : {"1", "true", "yes", "on"}) {
    if (equalIgnoringCase(text, word)) {
      return 1U;
    }
  }
  for (const std::string_view word : {"0", "false", "no", "off"}) {
    if (equalIgnoringCase(text, word)) {
      return 0U;
    }
  }
  return {};
}

// The new bits of a field that holds `old`.
Result<std::uint32_t> parseValue(const ShapeField& field, std::string_view text,
                                 std::uint32_t old) {
  switch (field.type) {
    case FieldType::Integer:
      return parseInteger(text);
    case FieldType::Flag: {
      const auto truth = parseTruth(text);
      return truth ? Result<std::uint32_t>(*truth) : parseInteger(text);
    }
    case FieldType::ByteFlag: {
      const auto truth = parseTruth(text);
      if (!truth) {
        return Error{ErrorKind::BadData, {}, {}, "'" + std::string(text) + "' is neither 0 nor 1"};
      }
      pv::ByteFlag flag{old};
      flag.set(*truth != 0);
      return flag.slot;
    }
    case FieldType::Float: {
      const auto number = parseNumber<float>(text);
      return number ? Result<std::uint32_t>(std::bit_cast<std::uint32_t>(number.value()))
                    : number.error();
    }
    case FieldType::Name:
      return parseName(field, text);
    case FieldType::Word:
      break;
  }
  return Error{ErrorKind::BadData, {}, {}, "is reserved and cannot be set"};
}

}  // namespace

std::string fieldText(const ShapeField& field, const ShapeRecord& shape) {
  const std::uint32_t bits = field.load(shape);
  switch (field.type) {
    case FieldType::Float:
      return numberText(std::bit_cast<float>(bits));
    case FieldType::ByteFlag:
      return pv::ByteFlag{bits}.isSet() ? "1" : "0";
    case FieldType::Word:
      return std::to_string(bits);
    case FieldType::Name:
      if (bits < field.names.size()) {
        return std::string(field.names[bits]);
      }
      break;
    case FieldType::Integer:
    case FieldType::Flag:
      break;
  }
  return std::to_string(static_cast<std::int32_t>(bits));
}

double fieldNumber(const ShapeField& field, const ShapeRecord& shape) {
  const std::uint32_t bits = field.load(shape);
  switch (field.type) {
    case FieldType::Float:
      return static_cast<double>(std::bit_cast<float>(bits));
    case FieldType::ByteFlag:
      return pv::ByteFlag{bits}.isSet() ? 1.0 : 0.0;
    case FieldType::Word:
      return bits;
    case FieldType::Integer:
    case FieldType::Flag:
    case FieldType::Name:
      break;
  }
  return static_cast<std::int32_t>(bits);
}

Status setField(const ShapeField& field, std::string_view text, ShapeRecord& shape) {
  auto bits = parseValue(field, text, field.load(shape));
  if (!bits) {
    Error error = bits.error();
    error.reason = field.key + ": " + error.reason;
    return error;
  }
  field.store(shape, bits.value());
  return Done{};
}

}  // namespace pv
