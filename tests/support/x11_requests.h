#pragma once

// What the tests ask of X11 by its own calls, apart because Xlib's macros break other headers.

namespace quindle::testing {

// Waits until nobody holds back what the pointer has done, two seconds at most: a program that has
// captured the pointer goes on to hold it. Some window managers look at each click before its
// window gets it; a key that is pressed meanwhile would get there first.
void WaitForFreePointer();

// Asks the window manager to close a window, as its title bar does.
void AskToCloseX11Window(unsigned long window);

}  // namespace quindle::testing
