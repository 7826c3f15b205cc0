#include "app/settings.h"

#include <optional>
#include <variant>

#include "util/colour_scheme.h"

namespace pv {
namespace {

constexpr std::size_t kTextBuffer = 1024;  // bytes, the zero at the end included

constexpr std::string_view kShapeName = "CoreShapeFilename";
constexpr std::string_view kPathName = "CorePathFilename";
constexpr std::string_view kParticleName = "CoreParticleFilename";

}  // namespace

std::string readSetting(const UserRegistry& registry, std::string_view valueName,
                        std::string_view defaultText) {
  const auto value = registry.query(kSettingsKey, valueName);
  const auto* text = value ? std::get_if<std::string>(&*value) : nullptr;
  return text != nullptr && text->size() < kTextBuffer ? *text : std::string(defaultText);
}

void writeSetting(UserRegistry& registry, std::string_view valueName, std::string_view text) {
  static_cast<void>(registry.setString(kSettingsKey, valueName, text));
}

CoreNames readCoreNames(const UserRegistry& registry) {
  const CoreNames defaults;
  return {readSetting(registry, kShapeName, defaults.shape),
          readSetting(registry, kPathName, defaults.path),
          readSetting(registry, kParticleName, defaults.particle)};
}

void writeCoreNames(UserRegistry& registry, const CoreNames& names) {
  writeSetting(registry, kShapeName, names.shape);
  writeSetting(registry, kPathName, names.path);
  writeSetting(registry, kParticleName, names.particle);
}

}  // namespace pv
