#pragma once

#include <memory>
#include <string>

#include "base/error.h"

namespace corvane {

/// One object of the automation class while another program holds it.
class AutomationObject {
 public:
  virtual ~AutomationObject() = default;
  /// Opens a window that shares the program's speech service.
  virtual void StartBrowser() = 0;
  virtual void KillBrowser() = 0;
  virtual void Say(const std::string& text, bool interrupt) = 0;
};

/// What the program offers to other programs. A failure is a RunTimeError, which
/// the caller receives with its number and description.
class AutomationServer {
 public:
  virtual ~AutomationServer() = default;
  virtual std::unique_ptr<AutomationObject> CreateObject(const std::string& class_name) = 0;
  /// Opens a window of its own for an address; an empty one means the start page.
  virtual void OpenWindow(const std::string& address) = 0;

  // The shared speech service. Claims on it belong to their caller.
  virtual void SpeechInit(const std::string& caller) = 0;
  virtual void SpeechTerminate(const std::string& caller) = 0;
  /// A caller is gone for good: what it has not given back is given back for it.
  virtual void CallerLeft(const std::string& caller) = 0;
  virtual void KeyBoardEcho(bool enable) = 0;
  virtual void Say(const std::string& text, bool urgent) = 0;
};

/// The road on which other programs of the same user reach this one. Calls come
/// in on the user-interface thread, one at a time, and only from that user.
class Automation {
 public:
  virtual ~Automation() = default;
  /// Makes `server` reachable until Withdraw; it must live that long.
  virtual void Publish(AutomationServer& server) = 0;
  /// Answers every caller with `error` from now on.
  virtual void Refuse(const RunTimeError& error) = 0;
  /// Nobody reaches the program any more; the objects that others hold are let
  /// go. May be called while a call is being answered.
  virtual void Withdraw() = 0;
  /// Tells whoever listens that the keyboard echo was switched.
  virtual void TellKeyboardEcho(bool on) = 0;
};

}  // namespace corvane
