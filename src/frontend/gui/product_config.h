#pragma once

// Private. What the build system was told of the product, and how this library was compiled.

namespace quindle::frontend::gui {

extern const char* const kHomepageUrl;
extern const char* const kVideoChannelUrl;
extern const char* const kVideoServiceLabel;
extern const char* const kContactEmail;
extern const char* const kAuthorLine;

extern const bool kBuiltWithLto;
extern const bool kBuiltWithPgo;
extern const bool kBuiltWithO2;
extern const bool kBuiltWithO3;

}  // namespace quindle::frontend::gui
