// What is told when there is no page, and what pages may load.
#include "web/Problem.h"

#include <gtest/gtest.h>

#include "web/Policy.h"
#include "web/address/OwnAddress.h"

namespace corvane {
namespace {

using Kind = LoadFailure::Kind;

TEST(LoadProblem, AFileThatMayNotBeReadIsNamed) {
  const Problem problem = LoadProblem("file:///root/secret.html", {Kind::ForbiddenFile, ""});
  EXPECT_EQ(problem.title, "File cannot be read");
  EXPECT_EQ(problem.sentence, "You are not allowed to read the file at file:///root/secret.html.");
}

TEST(LoadProblem, NamesTheSiteAndWhatWasReported) {
  const Problem problem = LoadProblem("https://example.org/a", {Kind::Other, "It broke"});
  EXPECT_EQ(problem.title, "The page could not be loaded: example.org");
  EXPECT_EQ(problem.sentence, "The connection to example.org failed: It broke.");
  EXPECT_EQ(problem.address, "https://example.org/a");
  EXPECT_EQ(LoadProblem("https://example.org/a", {Kind::GivenUp, ""}).title,
            "No answer: example.org");
}

TEST(LoadProblem, AnotherWayIsTriedOnlyWhereNoConnectionWasMade) {
  for (const Kind kind : {Kind::Refused, Kind::TimedOut, Kind::NoConnection}) {
    EXPECT_TRUE(IsConnectionFailure(kind));
  }
  for (const Kind kind : {Kind::NoHost, Kind::GivenUp, Kind::NotSecure, Kind::Other}) {
    EXPECT_FALSE(IsConnectionFailure(kind));
  }
}

// --- what pages may load -----------------------------------------------------

constexpr const char* kPage = "https://example.org/";
constexpr const char* kFile = "file:///home/ann/a.html";

Verdict::Kind Of(const std::string& from, const LoadWish& wish, const std::string& asked = "") {
  return Judge(wish, {from, asked}).kind;
}

TEST(Policy, PagesOfTheNetworkReachNeitherFilesNorOwnPages) {
  EXPECT_EQ(Of(kPage, {"https://example.net/"}), Verdict::Kind::Use);
  EXPECT_EQ(Of(kPage, {kFile}), Verdict::Kind::Ignore);
  EXPECT_EQ(Of(kPage, {kHomePage}), Verdict::Kind::Ignore);
  EXPECT_EQ(JudgeNewWindow({kFile}, {kPage, ""}).kind, Verdict::Kind::Ignore);
  EXPECT_EQ(JudgeNewWindow({kHomePage}, {kPage, ""}).kind, Verdict::Kind::Ignore);
}

TEST(Policy, TheUserReachesThemAndNoServerLeadsThere) {
  EXPECT_EQ(Of(kPage, {kFile}, "file:///typed"), Verdict::Kind::Use);
  EXPECT_EQ(Of(kPage, {kHomePage}, kHomePage), Verdict::Kind::Use);
  EXPECT_EQ(Of(kPage, {kHomePage, LoadWish::Way::History}), Verdict::Kind::Use);
  EXPECT_EQ(Of(kPage, {kFile, LoadWish::Way::Ahead, true}, kFile), Verdict::Kind::Ignore);
  EXPECT_EQ(Of(kFile, {"file:///home/ann/b.html"}), Verdict::Kind::Use);
}

TEST(Policy, ADocumentIsLedToOnlyByWhatAskedForIt) {
  const std::string document = DocumentPage("https://example.org/a.pdf");
  EXPECT_EQ(Of(kHomePage, {document}), Verdict::Kind::Ignore);
  EXPECT_EQ(Of(kPage, {document}, document), Verdict::Kind::Use);
  EXPECT_EQ(Judge({document + "#page=2"}, {"", "", document}).kind, Verdict::Kind::Use);
}

TEST(Policy, OtherProgramsGetTheirAddresses) {
  const Verdict verdict = Judge({"mailto:ann@example.org", LoadWish::Way::Ahead, false, true}, {});
  EXPECT_EQ(verdict.kind, Verdict::Kind::Outside);
  EXPECT_TRUE(verdict.user_gesture);
}

TEST(Policy, WhatCannotBeShownIsAFileOrADocument) {
  const auto of = [](const char* mime, bool shown, bool page, bool saved) {
    return Judge(LoadAnswer{kPage, mime, shown, page, saved}).kind;
  };
  EXPECT_EQ(of("text/html", true, true, false), Verdict::Kind::Use);
  EXPECT_EQ(of("text/html", true, true, true), Verdict::Kind::Download);
  EXPECT_EQ(of("Application/PDF", true, true, false), Verdict::Kind::Document);
  EXPECT_EQ(of("application/pdf", true, true, true), Verdict::Kind::Download);
  EXPECT_EQ(of("application/pdf", true, false, false), Verdict::Kind::Ignore);
  EXPECT_EQ(of("image/strange", false, false, false), Verdict::Kind::Ignore);
}

}  // namespace
}  // namespace corvane
