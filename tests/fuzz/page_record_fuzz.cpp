#include "platform/linux/web/page/page_record.h"

#include "platform/linux/web/page/text_record.h"
#include "tests/fuzz/fuzz.h"

using namespace corvane;
using namespace corvane::desktop;

// What a page process sends, which a hostile page may have taken over.
void FuzzOne(const std::string& input) {
  ParseRecords(input);
  ParsePageText(input);
  ParsePageElement(input);
  auto record = ParseRecord(input);
  const auto event = ParseElementEvent(input);
  if (!record || !event) return;
  for (auto& [number, element] : record->elements) Apply(*event, *element);
}
