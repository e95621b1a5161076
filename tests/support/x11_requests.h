#pragma once

// What the tests ask of X11 by its own calls, apart because Xlib's macros break other headers.

#include <memory>

namespace quindle::testing {

// Waits until nobody holds back what the pointer has done, two seconds at most: a program that has
// captured the pointer goes on to hold it. Some window managers look at each click before its
// window gets it; a key that is pressed meanwhile would get there first.
void WaitForFreePointer();

// Asks the window manager to close a window, as its title bar does.
void AskToCloseX11Window(unsigned long window);

// Counts how often a window loses the keyboard.
class X11FocusWatch {
 public:
  explicit X11FocusWatch(unsigned long window);
  ~X11FocusWatch();
  X11FocusWatch(const X11FocusWatch&) = delete;
  X11FocusWatch& operator=(const X11FocusWatch&) = delete;

  // So far.
  int Losses();

 private:
  struct Connection;
  std::unique_ptr<Connection> connection_;
  int losses_ = 0;
};

}  // namespace quindle::testing
