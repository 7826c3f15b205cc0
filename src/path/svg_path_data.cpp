#include <array>
#include <span>

#include "path/svg_data.h"
#include "path/svg_scanner.h"

namespace pv {

namespace {

constexpr std::size_t kMostArguments = 7;
using Arguments = std::array<double, kMostArguments>;

/// What the smooth commands mirror: the last control point of a curve of the
/// same kind just before.
enum class CurveKind : std::uint8_t { None, Cubic, Quadratic };

class PathDrawer {
 public:
  explicit PathDrawer(OutlinePen& pen) : pen_(pen) {}

  /// Relative commands count from `base`, which is the origin for absolute ones.
  void move(const Arguments& n, PlanePoint base) {
    pen_.moveTo(base + PlanePoint{n[0], n[1]});
    last_ = CurveKind::None;
  }
  void line(const Arguments& n, PlanePoint base) { lineTo(base + PlanePoint{n[0], n[1]}); }
  void horizontal(const Arguments& n, PlanePoint base) {
    lineTo({base.x + n[0], pen_.position().y});
  }
  void vertical(const Arguments& n, PlanePoint base) { lineTo({pen_.position().x, base.y + n[0]}); }
  void cubic(const Arguments& n, PlanePoint base) {
    cubicTo(base + PlanePoint{n[0], n[1]}, base + PlanePoint{n[2], n[3]},
            base + PlanePoint{n[4], n[5]});
  }
  void smoothCubic(const Arguments& n, PlanePoint base) {
    cubicTo(mirrored(CurveKind::Cubic), base + PlanePoint{n[0], n[1]},
            base + PlanePoint{n[2], n[3]});
  }
  void quadratic(const Arguments& n, PlanePoint base) {
    quadraticTo(base + PlanePoint{n[0], n[1]}, base + PlanePoint{n[2], n[3]});
  }
  void smoothQuadratic(const Arguments& n, PlanePoint base) {
    quadraticTo(mirrored(CurveKind::Quadratic), base + PlanePoint{n[0], n[1]});
  }
  void arc(const Arguments& n, PlanePoint base) {
    pen_.arcTo({n[0], n[1], n[2], n[3] != 0.0, n[4] != 0.0}, base + PlanePoint{n[5], n[6]});
    last_ = CurveKind::None;
  }
  void close(const Arguments& /*none*/, PlanePoint /*base*/) {
    pen_.close();
    last_ = CurveKind::None;
  }

 private:
  [[nodiscard]] PlanePoint mirrored(CurveKind kind) const {
    const PlanePoint at = pen_.position();
    return last_ == kind ? at * 2.0 - control_ : at;
  }
  void lineTo(PlanePoint to) {
    pen_.lineTo(to);
    last_ = CurveKind::None;
  }
  void cubicTo(PlanePoint control1, PlanePoint control2, PlanePoint to) {
    pen_.curveTo(control1, control2, to);
    last_ = CurveKind::Cubic;
    control_ = control2;
  }
  void quadraticTo(PlanePoint control, PlanePoint to) {
    pen_.quadraticTo(control, to);
    last_ = CurveKind::Quadratic;
    control_ = control;
  }

  OutlinePen& pen_;
  CurveKind last_ = CurveKind::None;
  PlanePoint control_;
};

struct Command {
  char letter;  ///< lower case, the relative form
  std::size_t arguments;
  void (PathDrawer::*draw)(const Arguments&, PlanePoint);
};

constexpr std::array kCommands{
    Command{'m', 2, &PathDrawer::move},       Command{'l', 2, &PathDrawer::line},
    Command{'h', 1, &PathDrawer::horizontal}, Command{'v', 1, &PathDrawer::vertical},
    Command{'c', 6, &PathDrawer::cubic},      Command{'s', 4, &PathDrawer::smoothCubic},
    Command{'q', 4, &PathDrawer::quadratic},  Command{'t', 2, &PathDrawer::smoothQuadratic},
    Command{'a', 7, &PathDrawer::arc},        Command{'z', 0, &PathDrawer::close},
};
constexpr const Command* kLine = &kCommands[1];

const Command* commandOf(char letter) {
  for (const Command& command : kCommands) {
    if (command.letter == asciiLower(letter)) {
      return &command;
    }
  }
  return nullptr;
}

bool readArguments(SvgScanner& scanner, const Command& command, Arguments& arguments) {
  for (std::size_t i = 0; i < command.arguments; ++i) {
    if (command.letter == 'a' && (i == 3 || i == 4)) {
      const auto flag = scanner.flag();
      arguments[i] = flag.value_or(false) ? 1.0 : 0.0;
      if (!flag) {
        return false;
      }
    } else if (const auto number = scanner.number()) {
      arguments[i] = *number;
    } else {
      return false;
    }
  }
  return true;
}

/// One letter and all the arguments behind it.
Status drawCommand(SvgScanner& scanner, const Command* command, bool relative, PathDrawer& drawer,
                   OutlinePen& pen) {
  Arguments arguments{};
  do {
    if (!readArguments(scanner, *command, arguments)) {
      return scanner.fault(kNoNumber);
    }
    const PlanePoint base = relative ? pen.position() : PlanePoint{};
    (drawer.*command->draw)(arguments, base);
    if (pen.pieceCount() > kMaxSvgPieces) {
      return scanner.fault("there are more than 500000 pieces");
    }
    if (command->letter == 'm') {
      command = kLine;  // further pairs are lines
    }
  } while (command->arguments > 0 && !scanner.atEnd() && commandOf(scanner.peek()) == nullptr);
  return Done{};
}

}  // namespace

Status drawPathData(std::string_view data, OutlinePen& pen) {
  SvgScanner scanner(data);
  PathDrawer drawer(pen);
  for (bool first = true; !scanner.atEnd(); first = false) {
    const char letter = scanner.peek();
    const Command* command = commandOf(letter);
    if (command == nullptr || (first && command->letter != 'm')) {
      return scanner.fault(first ? "the path does not begin with a move" : "there is no command");
    }
    scanner.take(letter);
    scanner.skipBlanks();
    const bool relative = letter == command->letter;
    if (auto drawn = drawCommand(scanner, command, relative, drawer, pen); !drawn) {
      return drawn;
    }
  }
  return Done{};
}

}  // namespace pv
