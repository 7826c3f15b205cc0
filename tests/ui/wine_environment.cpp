// Wine keeps variables whose names begin with QT_ from the programs that it runs. What
// the tests set comes with PV_ in front, and is put right before any other code asks.
// And what a test has to say must not go to a debugger.

#include <array>

#include <QByteArray>

namespace {

const bool kPutRight = [] {
  for (const std::array<const char*, 2>& names :
       {std::array{"PV_QT_QPA_PLATFORM", "QT_QPA_PLATFORM"},
        std::array{"PV_QT_SCALE_FACTOR", "QT_SCALE_FACTOR"}}) {
    if (qEnvironmentVariableIsSet(names[0])) {
      qputenv(names[1], qgetenv(names[0]));
    }
  }
  return qputenv("QT_FORCE_STDERR_LOGGING", "1");
}();

}  // namespace
