// Built-in files.
#include "platform/linux/web/web_resource.h"

#include <gtest/gtest.h>

namespace corvane::desktop {
namespace {

TEST(WebResource, UnknownFileIsAMistake) { EXPECT_ANY_THROW(WebResource("none.html")); }

}  // namespace
}  // namespace corvane::desktop
