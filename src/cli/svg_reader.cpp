#include "cli/svg_reader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "math/plane_angles.h"
#include "path/svg_data.h"

namespace pv {

namespace {

constexpr std::size_t kMaxDepth = 256;
constexpr std::size_t kMaxQuoted = 40;

/// What percentages are taken of, in user units.
struct SvgPage {
  double width = 100.0;
  double height = 100.0;

  [[nodiscard]] double diagonal() const { return planeLength(width, height) / std::sqrt(2.0); }
};

Error svgFault(std::string reason) {
  return {ErrorKind::BadData, {}, {}, std::move(reason)};
}

std::string_view localName(const pugi::xml_node& node) {
  const std::string_view name = node.name();
  const auto colon = name.rfind(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

std::string quoted(std::string_view text) {
  std::size_t length = std::min(text.size(), kMaxQuoted);
  // A letter that takes several bytes is left out whole.
  while (length > 0 && length < text.size() &&
         (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U) {
    --length;
  }
  return "'" + std::string(text.substr(0, length)) + "'";
}

/// Draws one element's attributes. The first fault stays, and zeros stand in for
/// what it concerns.
class ElementDrawer {
 public:
  ElementDrawer(const pugi::xml_node& node, const SvgPage& page, OutlinePen& pen)
      : node_(node), page_(page), pen_(pen) {}

  void path() { keep("d", "none" == text("d") ? Status(Done{}) : drawPathData(text("d"), pen_)); }
  void polyline() { keep("points", drawPointList(text("points"), pen_)); }
  void polygon() {
    polyline();
    pen_.close();
  }
  void line() {
    pen_.moveTo({across("x1"), down("y1")});
    pen_.lineTo({across("x2"), down("y2")});
  }
  void circle() { ellipseOf(length("r", page_.diagonal()), length("r", page_.diagonal())); }
  void ellipse() {
    const double rx = across("rx");
    const double ry = down("ry");
    ellipseOf(has("rx") ? rx : ry, has("ry") ? ry : rx);
  }
  void rect() {
    RoundedRect rect{{across("x"), down("y")}, across("width"), down("height")};
    const double rx = std::max(0.0, across("rx"));
    const double ry = std::max(0.0, down("ry"));
    rect.radiusX = std::min(has("rx") ? rx : ry, rect.width / 2);
    rect.radiusY = std::min(has("ry") ? ry : rx, rect.height / 2);
    if (rect.width > 0 && rect.height > 0) {
      drawRect(pen_, rect);
    }
  }

  [[nodiscard]] Affine transformation() {
    const auto affine = parseTransform(text("transform"));
    if (affine) {
      return affine.value();
    }
    keep("transform", affine.error());
    return {};
  }
  [[nodiscard]] bool isHidden() const {
    std::string style = std::string(text("style")) + ";";
    style.erase(std::remove(style.begin(), style.end(), ' '), style.end());
    return text("display") == "none" || style.find("display:none;") != std::string::npos;
  }
  /// The size of the viewBox, or else of the drawing.
  [[nodiscard]] SvgPage ownPage() {
    OutlinePen box;
    const bool hasBox = drawPointList(text("viewBox"), box).ok();
    const PlanePoint size = hasBox ? box.position() : PlanePoint{};
    if (size.x > 0 && size.y > 0) {
      return {size.x, size.y};
    }
    return {has("width") ? across("width") : page_.width,
            has("height") ? down("height") : page_.height};
  }

  [[nodiscard]] const std::optional<Error>& fault() const { return fault_; }

 private:
  [[nodiscard]] std::string_view text(const char* name) const {
    return node_.attribute(name).value();
  }
  [[nodiscard]] bool has(const char* name) const {
    return !text(name).empty() && text(name) != "auto";
  }
  double across(const char* name) { return length(name, page_.width); }
  double down(const char* name) { return length(name, page_.height); }

  /// 0 when there is none.
  double length(const char* name, double whole) {
    const auto value = has(name) ? parseLength(text(name), whole) : 0.0;
    keep(name, value ? Status(Done{}) : value.error());
    return value ? value.value() : 0.0;
  }
  void ellipseOf(double rx, double ry) {
    const PlanePoint centre{across("cx"), down("cy")};
    if (rx > 0 && ry > 0) {
      drawEllipse(pen_, centre, rx, ry);
    }
  }
  void keep(const char* attribute, const Status& status) {
    if (!status && !fault_) {
      fault_ = svgFault("in '" + std::string(attribute) + "' of " + quoted(localName(node_)) +
                        ": " + status.error().reason);
    }
  }

  const pugi::xml_node& node_;
  const SvgPage& page_;
  OutlinePen& pen_;
  std::optional<Error> fault_;
};

struct SvgShape {
  std::string_view name;
  void (ElementDrawer::*draw)();
};
constexpr std::array kSvgShapes{
    SvgShape{"path", &ElementDrawer::path},       SvgShape{"polyline", &ElementDrawer::polyline},
    SvgShape{"polygon", &ElementDrawer::polygon}, SvgShape{"line", &ElementDrawer::line},
    SvgShape{"circle", &ElementDrawer::circle},   SvgShape{"ellipse", &ElementDrawer::ellipse},
    SvgShape{"rect", &ElementDrawer::rect},
};
constexpr std::array<std::string_view, 4> kSvgGroups{"svg", "g", "a", "switch"};
constexpr std::array<std::string_view, 4> kSvgLeftOut{"use", "text", "image", "foreignObject"};

template <class Names>
bool isOneOf(const Names& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

bool isDrawable(PlanePoint p) {
  return std::abs(p.x) <= kMaxSvgNumber && std::abs(p.y) <= kMaxSvgNumber;  // false for NaN
}

bool isDrawable(const Outline& outline) {
  return isDrawable(outline.start) &&
         std::all_of(outline.pieces.begin(), outline.pieces.end(), [](const OutlinePiece& piece) {
           return isDrawable(piece.end) && isDrawable(piece.control1) && isDrawable(piece.control2);
         });
}

/// Goes through the tree in document order, with a stack of its own.
class SvgWalk {
 public:
  Result<SvgDrawing> run(const pugi::xml_node& root) {
    todo_.push_back({root, {}, 0});
    while (!todo_.empty()) {
      const Step step = todo_.back();
      todo_.pop_back();
      if (step.depth > 0 && step.node.next_sibling()) {
        todo_.push_back({step.node.next_sibling(), step.outer, step.depth});
      }
      if (const auto visited = visit(step); !visited) {
        return visited.error();
      }
    }
    return std::move(drawing_);
  }

 private:
  struct Step {
    pugi::xml_node node;
    Affine outer;
    std::size_t depth;
  };

  Status visit(const Step& step) {
    const std::string_view name = localName(step.node);
    const auto shape = std::find_if(kSvgShapes.begin(), kSvgShapes.end(),
                                    [name](const SvgShape& s) { return s.name == name; });
    const bool isShape = shape != kSvgShapes.end();
    const bool isGroup = isOneOf(kSvgGroups, name);
    ElementDrawer drawer(step.node, page_, pen_);
    if (step.node.type() != pugi::node_element || drawer.isHidden()) {
      return Done{};
    }
    if (!isShape && !isGroup) {
      drawing_.leftOut += isOneOf(kSvgLeftOut, name) ? 1 : 0;
      return Done{};
    }
    if (step.depth == 0) {
      page_ = drawer.ownPage();
    }
    const Affine affine = step.outer * drawer.transformation();
    if (isShape) {
      (drawer.*shape->draw)();
    }
    if (drawer.fault()) {
      return *drawer.fault();
    }
    return isShape ? keepOutlines(affine) : enter(step, affine);
  }

  Status enter(const Step& step, const Affine& affine) {
    if (step.depth == kMaxDepth) {
      return svgFault("elements are nested deeper than 256");
    }
    if (const pugi::xml_node child = step.node.first_child()) {
      todo_.push_back({child, affine, step.depth + 1});
    }
    return Done{};
  }

  Status keepOutlines(const Affine& affine) {
    pieces_ += pen_.pieceCount();
    if (pieces_ > kMaxSvgPieces) {
      return svgFault("the drawing has more than 500000 pieces");
    }
    for (Outline& outline : pen_.take()) {
      transform(outline, affine);
      if (!isDrawable(outline)) {
        return svgFault("a coordinate lies beyond 1e12");
      }
      drawing_.outlines.push_back(std::move(outline));
    }
    return Done{};
  }

  SvgDrawing drawing_;
  SvgPage page_;
  OutlinePen pen_;
  std::size_t pieces_ = 0;
  std::vector<Step> todo_;
};

Error xmlFault(const pugi::xml_parse_result& result) {
  std::string why = result.description();
  if (result.status == pugi::status_no_document_element) {
    why = "there is no element";
  }
  return {ErrorKind::BadData,
          {},
          static_cast<std::uint64_t>(std::max<std::ptrdiff_t>(result.offset, 0)),
          "no well-formed XML: " + why};
}

}  // namespace

Result<SvgDrawing> readSvg(std::span<const std::byte> bytes) {
  constexpr std::array kGzip{std::byte{0x1F}, std::byte{0x8B}};
  if (bytes.size() > kMaxSvgBytes) {
    return svgFault("the file is larger than 16 MiB");
  }
  if (bytes.size() >= kGzip.size() && std::equal(kGzip.begin(), kGzip.end(), bytes.begin())) {
    return svgFault("the file is compressed; unpack it first");
  }
  pugi::xml_document document;
  const auto parsed = document.load_buffer(bytes.data(), bytes.size());
  if (!parsed) {
    return xmlFault(parsed);
  }
  const pugi::xml_node root = document.document_element();
  if (localName(root) != "svg") {
    return svgFault("no SVG drawing: the outermost element is " + quoted(localName(root)));
  }
  return SvgWalk().run(root);
}

}  // namespace pv
