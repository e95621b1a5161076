#include "guide/shader_parameters.inc"

#include <map>

#include "block_test.h"

namespace {

std::map<std::string, float> g_uniforms;

}  // namespace

void SetUniform(const std::string& name, float value) {
  g_uniforms[name] = value;
}

namespace quindle::testing {
namespace {

class GuideShader : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    g_uniforms.clear();
    source_ = folder_.Write("glow.glsl", "#pragma parameter GLOW \"Glow\" 2.0 1.0 3.0 0.5\n");
    preset_ = folder_.Write("glow.glslp", "shader0 = glow.glsl\nparameters = GLOW\nGLOW = 1.5\n");
  }

  // The user pulls the slider to its right end, applies, and ends the dialog.
  void TuneAndEnd(const std::filesystem::path& path, std::function<void()> ends) {
    DialogScript script;
    script.Wait()
        .Step([] {
          const gui::ShaderDialogGeometry geometry = gui::BuildShaderDialogGeometry(1, 1.0F);
          const int x = geometry.slider_x + geometry.slider_width - 1;
          Click(x, geometry.list_top + geometry.row_height / 2);
        })
        .Step([] { ClickCaption("Apply"); })
        .Step([] { EXPECT_EQ(g_uniforms.at("GLOW"), 3.0F); })
        .Step(std::move(ends));
    TuneShader(MakeParent(), path.string());
  }

  TemporaryDirectory folder_;
  std::filesystem::path source_;
  std::filesystem::path preset_;
};

TEST_F(GuideShader, CancelTakesTheDefaultsOfAPlainShaderBack) {
  TuneAndEnd(source_, [] { KeyDown(SDLK_ESCAPE); });
  EXPECT_EQ(g_uniforms.at("GLOW"), 2.0F);
}

TEST_F(GuideShader, CancelTakesTheValuesOfAPresetBack) {
  TuneAndEnd(preset_, [] { ClickCaption("Cancel"); });
  EXPECT_EQ(g_uniforms.at("GLOW"), 1.5F);
}

TEST_F(GuideShader, ClosingTheWindowKeepsWhatWasApplied) {
  TuneAndEnd(source_, [] { CloseWindow(WindowId()); });
  EXPECT_EQ(g_uniforms.at("GLOW"), 3.0F);
}

}  // namespace
}  // namespace quindle::testing
