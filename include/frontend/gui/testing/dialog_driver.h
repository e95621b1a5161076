#pragma once

/// A hand for tests of code that shows dialogs. A dialog blocks its caller, so the driver is told
/// beforehand what its user does, and does it from the heartbeat while the dialog is open, without
/// a display as well as in real windows. It belongs to no test framework.
///
/// The class is in the static library quindle_dialog_driver, which goes into a test program, never
/// into a product, and must be of the same version as the library of the dialogs.

#include <SDL.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "frontend/gui/screenshot_save_dialog.h"

namespace quindle::frontend::gui::testing {

/// A link of the About dialog.
enum class AboutLink : std::uint8_t {
  VideoChannel = 0,  ///< The row of the video channel.
  Homepage = 1,      ///< The row of the product's web address.
};

/// Does what a user does in the dialogs that open while it lives: one step after another, each in
/// the dialog that is open then, the innermost where dialogs are nested. The functions below put a
/// step at the end of the list and return at once.
///
/// A step that cannot be done ends the list: it is told by failure(), the dialogs that are open or
/// still come are closed as by their windows' close button, and where that leads nowhere a
/// std::runtime_error thrown by the heartbeat leaves the dialog. The same happens when a dialog is
/// still open a few frames after the last step.
///
/// Make it on the thread that owns SDL video, after SDL_Init and before the first dialog opens.
/// While it lives, the modal heartbeat is its own: a dialog that opens when the host has installed
/// another is closed, and failure() says so. A newer driver takes over from an older one.
class DialogDriver {
 public:
  /// Takes the modal heartbeat.
  /// @param host_heartbeat the host's own heartbeat, which is called first in every frame; what it
  /// throws passes through; may be empty
  explicit DialogDriver(std::function<void()> host_heartbeat = {});
  /// Makes the host's own heartbeat the modal heartbeat again.
  ~DialogDriver();
  DialogDriver(const DialogDriver&) = delete;
  DialogDriver& operator=(const DialogDriver&) = delete;
  DialogDriver(DialogDriver&&) = delete;
  DialogDriver& operator=(DialogDriver&&) = delete;

  /// Tells what went wrong: the first step that could not be done or was not reached, and which
  /// dialog was open and what it showed.
  /// @return a sentence, names of files in it as their bytes; empty when every step was done
  [[nodiscard]] std::string failure() const;

  /// Presses a button of a message box.
  /// @param id the button's id; the first button with it is pressed
  /// @return this driver
  DialogDriver& PressButton(int id);

  /// Opens a folder in a picker.
  /// @param name the folder's own name as the picker lists it, or ".." for the parent
  /// @return this driver
  DialogDriver& OpenFolder(const std::string& name);
  /// Picks a file in a picker, which closes.
  /// @param name the file's own name as the picker lists it
  /// @return this driver
  DialogDriver& PickFile(const std::string& name);
  /// Accepts the folder that a folder picker shows. The picker closes.
  /// @return this driver
  DialogDriver& SelectFolder();

  /// Puts a size into the hard-disk image dialog, in the place of what stands there.
  /// @param size what is typed: a number of MB, up to 10 digits
  /// @return this driver
  DialogDriver& EnterDiskSize(const std::string& size);
  /// Puts a file name into the hard-disk image or the screenshot dialog, in the place of what
  /// stands there.
  /// @param name UTF-8; fails when the field does not take every byte of it
  /// @return this driver
  DialogDriver& EnterFileName(const std::string& name);
  /// Opens the folder picker from the hard-disk image or the screenshot dialog. OpenFolder and
  /// SelectFolder go on from there.
  /// @return this driver
  DialogDriver& ChooseFolder();
  /// Presses "Create" in the hard-disk image dialog, which closes.
  /// @return this driver
  DialogDriver& Create();

  /// Chooses a format in the screenshot dialog.
  /// @param format the format
  /// @return this driver
  DialogDriver& ChooseFormat(ScreenshotSaveFormat format);
  /// Puts a number into the option of the screenshot dialog's format: the quality of JPEG, the
  /// compression of PNG. It fails for BMP.
  /// @param number what is typed, not negative: up to 3 digits for JPEG, 1 for PNG
  /// @return this driver
  DialogDriver& EnterFormatOption(int number);
  /// Sets the screenshot dialog's check box for run-length encoding, which only BMP has.
  /// @param on whether it is to be ticked
  /// @return this driver
  DialogDriver& TickRunLengthEncoding(bool on);
  /// Presses "Save" in the screenshot dialog, which closes.
  /// @return this driver
  DialogDriver& Save();

  /// Moves a slider of the shader dialog, after scrolling to it where that is needed. It fails when
  /// no place of the slider gives the value.
  /// @param name the parameter's name, not its label; the first with this name is moved
  /// @param value the value, compared as the dialog shows it, with three decimals
  /// @return this driver
  DialogDriver& SetParameter(const std::string& name, float value);

  /// Opens a page of the settings dialog.
  /// @param page what the list on the left says, such as "Target FPS"
  /// @return this driver
  DialogDriver& OpenPage(const std::string& page);
  /// Chooses an option on the settings dialog's open page.
  /// @param option its label, such as "60 FPS"; what stands there in brackets may be left out
  /// @return this driver
  DialogDriver& Choose(const std::string& option);
  /// Sets a check box on the settings dialog's open page.
  /// @param label its label, such as "Enable HDD sounds"
  /// @param on whether it is to be ticked
  /// @return this driver
  DialogDriver& Tick(const std::string& label, bool on);
  /// Moves a slider on the settings dialog's open page to the place nearest to a value.
  /// @param label the text above it: "Volume" (0 .. 1) or "Capture Speed" (0.25 .. 3.0)
  /// @param value the value; one out of the range fails
  /// @return this driver
  DialogDriver& MoveSlider(const std::string& label, double value);
  /// Presses "Browse..." on the settings dialog's page "Font Mode", which shows it while a font of
  /// the user's is chosen. OpenFolder and PickFile go on from there.
  /// @return this driver
  DialogDriver& BrowseFont();

  /// Presses "Apply" in the shader or the settings dialog, which stays open.
  /// @return this driver
  DialogDriver& Apply();

  /// Clicks on a link of the About dialog, which calls SDL_OpenURL and stays open.
  /// @param link the link
  /// @return this driver
  DialogDriver& OpenLink(AboutLink link);

  /// Presses Escape in whatever dialog is open.
  /// @return this driver
  DialogDriver& PressEscape();
  /// Closes whatever dialog is open as by its window's close button.
  /// @return this driver
  DialogDriver& Close();

  /// Presses and releases a key in whatever dialog is open.
  /// @param key the key
  /// @return this driver
  DialogDriver& PressKey(SDL_Keycode key);
  /// Clicks with the left button in whatever dialog is open: for what no other step does.
  /// @param part a part of the dialog's window, in its pixels, as the layout functions give it; it
  /// is clicked in its middle, which fails outside of the window
  /// @return this driver
  DialogDriver& Click(const SDL_Rect& part);
  /// Drags with the left button in whatever dialog is open, such as a scroll bar's thumb.
  /// @param from where the button goes down, in pixels of the dialog's window; a place outside of
  /// it fails
  /// @param to where it comes up; may lie outside
  /// @return this driver
  DialogDriver& Drag(SDL_Point from, SDL_Point to);
  /// Turns the mouse wheel in whatever dialog is open.
  /// @param part where the pointer is, as for Click; it stays there
  /// @param notches how far; positive is away from the user, which scrolls up
  /// @return this driver
  DialogDriver& TurnWheel(const SDL_Rect& part, int notches);
  /// Lets whatever dialog is open draw, for what takes more than the frame that follows every step.
  /// @param frames how many frames it draws at least; not negative
  /// @return this driver
  DialogDriver& Wait(int frames);

  /// Runs a step of the test's own, for example to look at what the dialog shows: it has drawn what
  /// the step before this one did.
  /// @param step called with the window of the dialog that is open; what it throws leaves the
  /// dialog; must not be empty
  /// @return this driver
  DialogDriver& Do(std::function<void(SDL_Window*)> step);

 private:
  class Script;
  std::shared_ptr<Script> script_;
};

}  // namespace quindle::frontend::gui::testing
