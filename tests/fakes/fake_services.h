#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "platform/desktop.h"

namespace corvane::fakes {

class FakeMessageBox : public MessageBox {
 public:
  struct Shown {
    std::string text;
    Icon icon;
    std::string title;
  };
  void Show(const std::string& text, Icon icon, const std::string& title,
            std::function<void()> closed) override {
    shown.push_back({text, icon, title});
    if (stay_open) {
      open.push_back(std::move(closed));
    } else if (closed) {
      closed();
    }
  }
  /// Closes all boxes that stay open.
  void Close() {
    for (const auto& closed : std::exchange(open, {})) {
      if (closed) closed();
    }
  }
  /// The texts of all boxes shown.
  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const auto& box : shown) texts.push_back(box.text);
    return texts;
  }

  std::vector<Shown> shown;
  bool stay_open = false;  ///< until Close; otherwise each box is closed at once
  std::vector<std::function<void()>> open;
};

class FakeSettings : public SettingsStore {
 public:
  std::string GetSetting(const std::string& application, const std::string& section,
                         const std::string& key, const std::string& fallback) const override {
    if (!fallback.empty() || !asked.contains({application, key}))
      asked[{application, key}] = fallback;
    const auto at = values.find({application, section, key});
    return at == values.end() ? fallback : at->second;
  }
  void SaveSetting(const std::string& application, const std::string& section,
                   const std::string& key, const std::string& value) override {
    if (refused.count(key) != 0) throw RunTimeError(kErrDeviceIo, "Settings", "Device I/O error");
    values[{application, section, key}] = value;
    saves.push_back(key + "=" + value);
  }
  /// A value of the pane's own settings, and of the window's.
  std::string& Pane(const std::string& key) { return values[{"pnlBrowser", "Settings", key}]; }
  std::string& Main(const std::string& key) { return values[{"Corvane", "Settings", key}]; }
  bool Has(const std::string& application, const std::string& key) const {
    return values.count({application, "Settings", key}) != 0;
  }

  std::map<std::tuple<std::string, std::string, std::string>, std::string> values;
  /// Each setting that was read, with the last default that was no empty text.
  mutable std::map<std::pair<std::string, std::string>, std::string> asked;
  std::vector<std::string> saves;
  std::set<std::string> refused;  ///< keys that cannot be written
};

class FakeRegistry : public Registry {
 public:
  FakeRegistry() {
    SetEngine("5.00.2920.0000", "52516.19");  // an engine that counts as current
  }
  std::optional<std::string> QueryValue(std::uint32_t root, const std::string& key,
                                        const std::string& value) const override {
    const auto at = values.find({root, key, value});
    return at == values.end() ? std::nullopt : std::optional(at->second);
  }
  void SetEngine(const std::string& version, const std::string& build) {
    const std::string key = "SOFTWARE\\Microsoft\\Internet Explorer\\";
    values.clear();
    if (!version.empty()) values[{0x80000002U, key, "Version"}] = version;
    if (!build.empty()) values[{0x80000002U, key, "Build"}] = build;
  }

  std::map<std::tuple<std::uint32_t, std::string, std::string>, std::string> values;
};

class FakeFileSystem : public FileSystem {
 public:
  std::string ProgramFolder() const override { return program_folder; }
  char Separator() const override { return separator; }
  std::string CurrentFolder() const override { return current_folder; }
  bool Exists(const std::string& path) const override { return files.count(path) != 0; }
  std::vector<std::string> ReadLines(const std::string& path) const override {
    if (unreadable) throw RunTimeError(kErrPermissionDenied, "FileSystem", "Permission denied");
    return files.at(path);
  }
  void Write(const std::string& path, const std::string& content) override {
    if (on_write) on_write(path, content);
    files[path] = {content};
  }
  std::string ReadText(const std::string& path, std::size_t most) const override {
    const auto at = files.find(path);
    if (unreadable || at == files.end()) return {};
    std::string content;
    for (const auto& line : at->second) content += line + '\n';
    return content.substr(0, most);
  }

  std::string program_folder = "/opt/corvane";
  char separator = '/';
  std::function<void(const std::string& path, const std::string& content)> on_write;
  std::string current_folder = "/home/ann";
  bool unreadable = false;
  std::map<std::string, std::vector<std::string>> files;
};

class FakeClipboard : public Clipboard {
 public:
  void Clear() override {
    text.clear();
    ++clears;
  }
  void SetText(const std::string& value) override { text = value; }
  std::string GetText() const override { return text; }

  std::string text;
  int clears = 0;
};

}  // namespace corvane::fakes
