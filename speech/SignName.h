#pragma once

#include <string_view>

namespace corvane {

/// What a sign that stands for no letter and no digit is called aloud: "comma". Empty for
/// other characters, and for blanks but the one that does not break. `character`: one, in
/// UTF-8.
std::string_view SignName(std::string_view character);

}  // namespace corvane
