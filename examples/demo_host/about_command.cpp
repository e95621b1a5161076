#include <memory>

#include "command_table.h"
#include "demo_command.h"
#include "frontend/gui/about_dialog.h"

namespace quindle::demo {
namespace {

using frontend::gui::AboutDialogInfoRows;

// The dialog has no result of its own; what it showed is printed instead.
Json ShowAndReport(SDL_Window* parent) {
  frontend::gui::ShowSimpleAboutDialog(parent, 1.0F);
  const AboutDialogInfoRows rows = frontend::gui::BuildAboutDialogInfoRows();
  return {{"dialog", "about"},         {"version", rows.version},   {"build_date", rows.buildDate},
          {"compiler", rows.compiler}, {"platform", rows.platform}, {"arch", rows.arch},
          {"flags", rows.flags}};
}

class AboutCommand : public DemoCommand {
 public:
  std::string Name() const override { return "about"; }
  std::string Description() const override { return "About dialog; prints what was built"; }
  std::string ButtonLabel() const override { return "About"; }

  void AddOptions(CLI::App& /*app*/) override {}

  CommandOutcome Run() override {
    // There is nothing to refuse: closing the dialog is its one way to end well.
    return {ExitStatus::Accepted, ShowAndReport(nullptr), ""};
  }

  Json ShowInHost(DemoSession& session) override { return ShowAndReport(session.host); }

  std::vector<TourScene> TourScenes() override {
    TourScene scene;
    scene.name = "about";
    scene.show = ShowAndReport;
    scene.play = LookAndLeave("about");
    return {std::move(scene)};
  }
};

}  // namespace

std::unique_ptr<DemoCommand> MakeAboutCommand() {
  return std::make_unique<AboutCommand>();
}

}  // namespace quindle::demo
