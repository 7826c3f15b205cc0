#include "path/svg_data.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <span>
#include <vector>

#include "math/plane_angles.h"
#include "path/svg_scanner.h"

namespace pv {

namespace {

constexpr std::size_t kMostNumbers = 6;
using Numbers = std::span<const double>;

double radians(double degrees) {
  return degrees * (std::numbers::pi / 180);
}

Affine translation(double x, double y) {
  return {1.0, 0.0, 0.0, 1.0, x, y};
}

Affine makeMatrix(Numbers n) {
  return {n[0], n[1], n[2], n[3], n[4], n[5]};
}
Affine makeTranslate(Numbers n) {
  return translation(n[0], n.size() > 1 ? n[1] : 0.0);
}
Affine makeScale(Numbers n) {
  return {n[0], 0.0, 0.0, n.size() > 1 ? n[1] : n[0], 0.0, 0.0};
}
Affine makeRotate(Numbers n) {
  const auto [sine, cosine] = planeTurn(radians(n[0]));
  const Affine turn{cosine, sine, -sine, cosine, 0.0, 0.0};
  return n.size() == 1 ? turn : translation(n[1], n[2]) * turn * translation(-n[1], -n[2]);
}
double tangent(double degrees) {
  const auto [sine, cosine] = planeTurn(radians(degrees));
  return sine / cosine;
}
Affine makeSkewX(Numbers n) {
  return {1.0, 0.0, tangent(n[0]), 1.0, 0.0, 0.0};
}
Affine makeSkewY(Numbers n) {
  return {1.0, tangent(n[0]), 0.0, 1.0, 0.0, 0.0};
}

struct TransformKind {
  std::string_view name;
  std::array<std::size_t, 2> counts;  ///< of numbers; either will do
  Affine (*make)(Numbers);
};
constexpr std::array kTransforms{
    TransformKind{"matrix", {6, 6}, makeMatrix}, TransformKind{"translate", {1, 2}, makeTranslate},
    TransformKind{"scale", {1, 2}, makeScale},   TransformKind{"rotate", {1, 3}, makeRotate},
    TransformKind{"skewX", {1, 1}, makeSkewX},   TransformKind{"skewY", {1, 1}, makeSkewY},
};

struct Unit {
  std::string_view name;
  double pixels;
};
constexpr std::array kUnits{
    Unit{"", 1.0},           Unit{"px", 1.0},         Unit{"pt", 96.0 / 72},   Unit{"pc", 16.0},
    Unit{"mm", 96.0 / 25.4}, Unit{"cm", 96.0 / 2.54}, Unit{"q", 96.0 / 101.6}, Unit{"in", 96.0},
    Unit{"em", 16.0},        Unit{"rem", 16.0},       Unit{"ex", 8.0},
};

Result<Affine> parseOneTransform(SvgScanner& scanner) {
  const std::string_view name = scanner.word();
  const auto kind = std::find_if(kTransforms.begin(), kTransforms.end(),
                                 [name](const TransformKind& k) { return k.name == name; });
  if (kind == kTransforms.end()) {
    return scanner.fault("there is no known transformation");
  }
  scanner.skipBlanks();
  if (!scanner.take('(')) {
    return scanner.fault("there is no parenthesis");
  }
  scanner.skipBlanks();
  std::array<double, kMostNumbers> numbers{};
  std::size_t count = 0;
  while (!scanner.take(')')) {
    const auto number = scanner.number();
    if (!number || count == numbers.size()) {
      return scanner.fault(number ? "there are too many numbers" : kNoNumber);
    }
    numbers[count++] = *number;
  }
  if (count != kind->counts[0] && count != kind->counts[1]) {
    return scanner.fault("a transformation has the wrong number of numbers");
  }
  return kind->make(std::span(numbers).first(count));
}

}  // namespace

Status drawPointList(std::string_view points, OutlinePen& pen) {
  SvgScanner scanner(points);
  for (bool first = true; !scanner.atEnd(); first = false) {
    const auto x = scanner.number();
    const auto y = x ? scanner.number() : std::nullopt;
    if (!y) {
      return scanner.fault(kNoNumber);
    }
    if (first) {
      pen.moveTo({*x, *y});
    } else {
      pen.lineTo({*x, *y});
    }
    if (pen.pieceCount() > kMaxSvgPieces) {
      return scanner.fault("there are more than 500000 pieces");
    }
  }
  return Done{};
}

Result<Affine> parseTransform(std::string_view list) {
  SvgScanner scanner(list);
  Affine product;
  if (scanner.word() == "none" && scanner.atEnd()) {
    return product;
  }
  scanner = SvgScanner(list);
  while (!scanner.atEnd()) {
    auto next = parseOneTransform(scanner);
    if (!next) {
      return next;
    }
    product = product * next.value();
    scanner.skipSeparator();
  }
  return product;
}

Result<double> parseLength(std::string_view text, double whole) {
  SvgScanner scanner(text);
  const auto number = scanner.bareNumber();
  if (!number) {
    return scanner.fault(kNoNumber);
  }
  const std::string_view name = scanner.word();
  scanner.skipBlanks();
  if (name == "%" && scanner.atEnd()) {
    return *number / 100 * whole;
  }
  const auto unit = std::find_if(kUnits.begin(), kUnits.end(),
                                 [name](const Unit& u) { return equalIgnoringCase(u.name, name); });
  if (unit == kUnits.end() || !scanner.atEnd()) {
    return scanner.fault("there is no known unit");
  }
  return *number * unit->pixels;
}

}  // namespace pv
