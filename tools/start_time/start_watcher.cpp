// Starts a program and prints the milliseconds until the first and until the last
// change of the screen, seen from outside: the program needs no hook for it.
// usage: start-watcher PROGRAM [ARGUMENT...]
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds kPause(1);      // between two looks
constexpr milliseconds kSettled(500);  // without a change: the picture is complete
constexpr milliseconds kPatience(20000);
constexpr int kColumns[] = {120, 400, 800};  // of the screen

// A few columns of the screen: enough to see a window change, which is painted as a
// whole, and little work for the server, which is the program's too.
std::string look(Display* display) {
  const auto height = static_cast<unsigned>(DisplayHeight(display, DefaultScreen(display)));
  std::string pixels;
  for (const int x : kColumns) {
    XImage* image =
        XGetImage(display, DefaultRootWindow(display), x, 0, 1, height, AllPlanes, ZPixmap);
    if (image != nullptr) {
      pixels.append(image->data, static_cast<std::size_t>(image->bytes_per_line * image->height));
      XDestroyImage(image);
    }
  }
  return pixels;
}

struct Times {
  Clock::time_point first;
  Clock::time_point last;
};

// Until the screen has changed and then stands still.
Times watch(Display* display, const std::string& bare) {
  const auto began = Clock::now();
  Times times{began, began};
  std::string seen = bare;
  while (Clock::now() - times.last < (times.first == began ? kPatience : kSettled)) {
    std::string now = look(display);
    if (now != seen) {
      times.last = Clock::now();
      times.first = times.first == began ? times.last : times.first;
      seen = std::move(now);
    }
    std::this_thread::sleep_for(kPause);
  }
  return times;
}

pid_t start(char** command) {
  const pid_t child = fork();
  if (child == 0) {
    execvp(command[0], command);
    std::perror(command[0]);
    std::_Exit(EXIT_FAILURE);
  }
  return child;
}

double inMilliseconds(Clock::duration time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

}  // namespace

int main(int argc, char** argv) {
  Display* display = argc > 1 ? XOpenDisplay(nullptr) : nullptr;
  if (display == nullptr) {
    std::fputs("usage: start-watcher PROGRAM [ARGUMENT...], with DISPLAY set\n", stderr);
    return EXIT_FAILURE;
  }
  // To where the pointer lights up nothing.
  const int screen = DefaultScreen(display);
  XWarpPointer(display, None, DefaultRootWindow(display), 0, 0, 0, 0,
               DisplayWidth(display, screen) - 1, DisplayHeight(display, screen) - 1);
  const std::string bare = look(display);
  const auto began = Clock::now();
  const pid_t child = start(argv + 1);
  const Times times = watch(display, bare);
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  while (look(display) != bare && Clock::now() - times.last < kPatience) {
    std::this_thread::sleep_for(kPause);  // the next one begins with a bare screen
  }
  XCloseDisplay(display);
  std::printf("%.1f %.1f\n", inMilliseconds(times.first - began),
              inMilliseconds(times.last - began));
  return EXIT_SUCCESS;
}
