#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "app/MannerSettings.h"
#include "app/StoredNumbers.h"
#include "app/frmProcess.h"
#include "platform/desktop.h"
#include "speech/ProcessSpeech.h"

namespace corvane {

class Application;
class AutomationEntry;
class frmCorvane;
class MainApp;

/// The start-up module: the process entry, the marker window and the windows
/// that are loaded.
class Multithread {
 public:
  explicit Multithread(Desktop& desktop);
  ~Multithread();
  Multithread(const Multithread&) = delete;
  Multithread& operator=(const Multithread&) = delete;

  /// The first window shows `address` in place of its start page. Before Main.
  void StartWith(const std::string& address) { first_address_ = address; }
  /// Runs at the start of every apartment. The first one marks the process and
  /// creates the speech service with its window; later ones find the marker and
  /// leave everything as it is. Shows its own errors.
  void Main();
  /// Takes the marker away, so that the process can end.
  void UnloadProcessWindow();
  /// A new browser window, hidden and without a service.
  std::shared_ptr<frmCorvane> CreateWindow();

  /// How the program behaves; the same object while the process lives.
  const corvane::Manner& Manner() const { return manner_.Current(); }

  /// The numbers that the windows find in the settings store.
  StoredNumbers& Stored() { return stored_; }

  /// Keeps a loaded window alive until it is unloaded.
  void Loaded(std::shared_ptr<frmCorvane> window);
  void Unloaded(const frmCorvane& window);
  const std::vector<std::shared_ptr<frmCorvane>>& Forms() const { return forms_; }

 private:
  void StartApartment();
  void Desktop_Ending();
  std::shared_ptr<frmCorvane> CreateFirstWindow();

  Desktop& desktop_;
  MannerSettings manner_;
  StoredNumbers stored_;
  ProcessSpeech speech_;
  WindowHandle hThreadWindow_ = 0;
  std::uint32_t lngProcessId_ = 0;
  std::unique_ptr<frmProcess> process_window_;
  std::unique_ptr<AutomationEntry> automation_;
  std::string first_address_;
  std::vector<std::shared_ptr<frmCorvane>> forms_;
  Connections connections_;
};

}  // namespace corvane
