#include "frontend/gui/build_info.h"

#include "frontend/gui/product_config.h"
#include "quindle_build_config.h"

// The only source that holds values of this one build, so that a rebuild recompiles nothing else.

// Some compilers do not look at SOURCE_DATE_EPOCH; the build system then passes the date itself.
#if !defined(QUINDLE_BUILD_DATE) || !defined(QUINDLE_BUILD_TIME)
#define QUINDLE_BUILD_DATE __DATE__
#define QUINDLE_BUILD_TIME __TIME__
#endif

namespace quindle::frontend {

const char* const kProgramVersion = QUINDLE_CONFIG_VERSION;
const char* const kProgramDate = QUINDLE_BUILD_DATE;
const char* const kProgramBuildDate = QUINDLE_BUILD_DATE " " QUINDLE_BUILD_TIME;

namespace gui {

const char* const kHomepageUrl = QUINDLE_CONFIG_HOMEPAGE_URL;
const char* const kVideoChannelUrl = QUINDLE_CONFIG_VIDEO_CHANNEL_URL;
const char* const kVideoServiceLabel = QUINDLE_CONFIG_VIDEO_SERVICE_LABEL;
const char* const kContactEmail = QUINDLE_CONFIG_CONTACT_EMAIL;
const char* const kAuthorLine = QUINDLE_CONFIG_AUTHOR_LINE;

const bool kBuiltWithLto = QUINDLE_BUILT_WITH_LTO != 0;
const bool kBuiltWithPgo = QUINDLE_BUILT_WITH_PGO != 0;
const bool kBuiltWithO2 = QUINDLE_BUILT_WITH_O2 != 0;
const bool kBuiltWithO3 = QUINDLE_BUILT_WITH_O3 != 0;

}  // namespace gui
}  // namespace quindle::frontend
