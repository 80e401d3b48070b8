#pragma once

// The process-wide message sink.
//
// The library never opens a window. Whatever it would show in a message box
// goes to one handler, which an application installs to present messages its
// own way. The default handler writes "caption: text" to standard error.
// Installing and calling the handler are safe from any thread.

#include <functional>
#include <string>

namespace kvdao::platform {

// Icons a message can carry, with the Windows message-box values.
inline constexpr unsigned IconStop = 0x10;
inline constexpr unsigned IconQuestion = 0x20;
inline constexpr unsigned IconWarning = 0x30;
inline constexpr unsigned IconInformation = 0x40;

using MessageHandler =
    std::function<void(const std::string& text, const std::string& caption, unsigned icon)>;

// Installs a handler and returns the previous one; an empty function restores
// the default.
MessageHandler SetMessageHandler(MessageHandler handler);

// Sends a message to the current handler.
void ShowMessage(const std::string& text, const std::string& caption, unsigned icon);

}  // namespace kvdao::platform
