#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/automation.h"

namespace corvane::desktop::tests {

/// A program that writes down what other programs ask of it.
class RecordingServer : public AutomationServer {
 public:
  std::unique_ptr<AutomationObject> CreateObject(const std::string& class_name) override {
    if (class_name != "Corvane.Application") throw RunTimeError(429, "test", "not known");
    return std::make_unique<Object>(*this);
  }
  void OpenWindow(const std::string& address) override { calls.push_back("open " + address); }
  void SpeechInit(const std::string& caller) override {
    calls.push_back("init");
    callers.push_back(caller);
  }
  void SpeechTerminate(const std::string& caller) override {
    calls.push_back("terminate");
    callers.push_back(caller);
  }
  void CallerLeft(const std::string& caller) override { gone.push_back(caller); }
  void KeyBoardEcho(bool enable) override {
    calls.push_back(enable ? "echo on" : "echo off");
    if (echo_fails) throw RunTimeError(91, "test", "no speech");
  }
  void Say(const std::string& text, bool urgent) override {
    calls.push_back("service says " + text + (urgent ? "!" : ""));
  }

  std::vector<std::string> calls;
  std::vector<std::string> callers;  ///< who claimed speech or gave it back
  std::vector<std::string> gone;     ///< callers that have left
  int objects = 0;
  bool echo_fails = false;

 private:
  class Object : public AutomationObject {
   public:
    explicit Object(RecordingServer& server) : server_(server) { ++server_.objects; }
    ~Object() override { --server_.objects; }
    void StartBrowser() override { server_.calls.push_back("start"); }
    void KillBrowser() override { server_.calls.push_back("kill"); }
    void Say(const std::string& text, bool interrupt) override {
      server_.calls.push_back("says " + text + (interrupt ? "!" : ""));
    }

   private:
    RecordingServer& server_;
  };
};

}  // namespace corvane::desktop::tests
