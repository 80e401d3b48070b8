#include "kvdao/platform/message.h"

#include <cstdio>
#include <mutex>

namespace kvdao::platform {
namespace {

std::mutex& HandlerMutex() {
  static std::mutex mutex;
  return mutex;
}

MessageHandler& Handler() {
  static MessageHandler handler;
  return handler;
}

void DefaultHandler(const std::string& text, const std::string& caption, unsigned) {
  std::fprintf(stderr, "%s: %s\n", caption.c_str(), text.c_str());
}

}  // namespace

MessageHandler SetMessageHandler(MessageHandler handler) {
  std::lock_guard<std::mutex> lock(HandlerMutex());
  MessageHandler previous = std::move(Handler());
  Handler() = std::move(handler);
  return previous;
}

void ShowMessage(const std::string& text, const std::string& caption, unsigned icon) {
  MessageHandler handler;
  {
    std::lock_guard<std::mutex> lock(HandlerMutex());
    handler = Handler();
  }
  // Called outside the lock, so that a handler may itself install another.
  if (handler) {
    handler(text, caption, icon);
  } else {
    DefaultHandler(text, caption, icon);
  }
}

}  // namespace kvdao::platform
