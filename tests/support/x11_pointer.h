#pragma once

// What the tests ask X11 of the pointer, apart because Xlib's macros break other headers.

namespace quindle::testing {

// Waits until nobody holds back what the pointer has done, two seconds at most: a program that has
// captured the pointer goes on to hold it. Some window managers look at each click before its
// window gets it; a key that is pressed meanwhile would get there first.
void WaitForFreePointer();

}  // namespace quindle::testing
