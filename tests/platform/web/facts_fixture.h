#pragma once

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "platform/linux/web/page/page_script.h"
#include "tests/platform/web/page_harness.h"

namespace corvane::desktop {

/// A test that asks the page scripts about elements of a page.
class FactsTest : public PageTest {
 protected:
  void Load(const std::string& content) {
    server_.Page("/", "<!doctype html><title>A</title>" + content);
    view_.Go(server_.Url());
  }
  /// What an expression in the page scripts' world gives; "?" when it fails.
  std::string Asked(const std::string& expression) {
    std::optional<std::optional<std::string>> answer;
    Evaluate(view_.View(), expression, [&](auto text) { answer = std::move(text); });
    EXPECT_TRUE(WaitUntil([&] { return answer.has_value(); }));
    return answer.value_or(std::nullopt).value_or("?");
  }
  std::string Find(const std::string& selector) {
    return "document.querySelector('" + selector + "')";
  }
  std::string NameOf(const std::string& selector) {
    return Asked("corvaneNames.nameOf(" + Find(selector) + ")");
  }
  std::string RoleOf(const std::string& selector) {
    return Asked("corvaneNames.roleOf(" + Find(selector) + ")");
  }
  std::string DescriptionOf(const std::string& selector) {
    return Asked("corvaneNames.descriptionOf(" + Find(selector) + ", corvaneNames.nameOf(" +
                 Find(selector) + "))");
  }
  nlohmann::json FactsOf(const std::string& selector) {
    return nlohmann::json::parse(
        Asked("JSON.stringify(corvaneFacts.factsOf(" + Find(selector) + "))"), nullptr, false);
  }
};

}  // namespace corvane::desktop
