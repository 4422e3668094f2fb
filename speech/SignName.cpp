#include "speech/SignName.h"

#include <algorithm>
#include <array>

namespace corvane {
namespace {

struct Sign {
  std::string_view sign;
  std::string_view name;
};

constexpr auto kSigns = std::to_array<Sign>({
    {"!", "exclamation mark"},
    {"\"", "quote"},
    {"#", "number sign"},
    {"$", "dollar"},
    {"%", "percent"},
    {"&", "ampersand"},
    {"'", "apostrophe"},
    {"(", "left parenthesis"},
    {")", "right parenthesis"},
    {"*", "asterisk"},
    {"+", "plus"},
    {",", "comma"},
    {"-", "minus"},
    {".", "period"},
    {"/", "slash"},
    {":", "colon"},
    {";", "semicolon"},
    {"<", "less than"},
    {"=", "equals"},
    {">", "greater than"},
    {"?", "question mark"},
    {"@", "at"},
    {"[", "left bracket"},
    {"\\", "backslash"},
    {"]", "right bracket"},
    {"^", "circumflex"},
    {"_", "underscore"},
    {"`", "grave accent"},
    {"{", "left brace"},
    {"|", "vertical bar"},
    {"}", "right brace"},
    {"~", "tilde"},
    {"\u00A0", "Space"},
    {"\u00A1", "inverted exclamation mark"},
    {"\u00A3", "pound"},
    {"\u00A7", "section"},
    {"\u00A8", "diaeresis"},
    {"\u00AB", "left guillemet"},
    {"\u00AC", "not"},
    {"\u00B0", "degree"},
    {"\u00B2", "superscript 2"},
    {"\u00B4", "acute accent"},
    {"\u00B7", "middle dot"},
    {"\u00B8", "cedilla"},
    {"\u00BB", "right guillemet"},
    {"\u00BD", "one half"},
    {"\u00BF", "inverted question mark"},
    {"\u02C7", "caron"},
    {"\u02D8", "breve"},
    {"\u02D9", "dot above"},
    {"\u02DA", "ring"},
    {"\u02DB", "ogonek"},
    {"\u02DD", "double acute accent"},
    {"\u20AC", "euro"},
});

}  // namespace

std::string_view SignName(std::string_view character) {
  const auto* found = std::find_if(kSigns.begin(), kSigns.end(), [character](const Sign& each) {
    return each.sign == character;
  });
  return found == kSigns.end() ? std::string_view() : found->name;
}

}  // namespace corvane
