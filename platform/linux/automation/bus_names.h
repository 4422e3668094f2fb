#pragma once

namespace corvane::desktop {

// Names on the session bus that other programs rely on.
inline constexpr const char* kBusName = "org.corvane.Corvane";
inline constexpr const char* kFactoryPath = "/org/corvane/Corvane";
inline constexpr const char* kServicePath = "/org/corvane/MainApp";
inline constexpr const char* kObjectPathStart = "/org/corvane/Application/";
inline constexpr const char* kFactoryInterface = "org.corvane.Factory";
inline constexpr const char* kObjectInterface = "org.corvane.Application";
inline constexpr const char* kServiceInterface = "org.corvane.MainApp";
inline constexpr const char* kOpenInterface = "org.freedesktop.Application";
/// The error's message is its number, a colon and its description.
inline constexpr const char* kErrorName = "org.corvane.Error.RunTime";

}  // namespace corvane::desktop
