#include "web/page/PageRecord.h"

#include "tests/fuzz/fuzz.h"
#include "web/page/ElementEvent.h"
#include "web/page/TextRecord.h"

using namespace corvane;

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
