#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <type_traits>

#include "platform/base/RuntimeError.h"
#include "platform/controls/Control.h"

namespace ostrand {

// A call that leaves a view, as a transcript tells it.
struct CallText {
  std::string name;
  std::string arguments;      // as they are printed, without the document
  std::string firstArgument;  // as it is
  std::optional<std::string> xml;
  bool told = true;  // a call that only asks is not printed

  std::string line() const { return arguments.empty() ? name : name + " " + arguments; }
};

template <class First, class... Rest>
std::string argumentsText(const First& first, const Rest&... rest) {
  std::string text = toText(Value(first));
  ((text += " " + toText(Value(rest))), ...);
  return text;
}

// Hears of the calls of a view from begin to end; calls nest.
class CallListener {
 public:
  using Call = std::size_t;

  virtual Call begins(const CallText& call) = 0;
  // Before the host is asked; may throw RuntimeError, and then the host is not asked.
  virtual void enters(Call) {}
  // When the host has answered, and before the view hears of it. The answer is as it is printed, empty where there is none
  // to tell; of a call that only asks some answers are told as well (level, maximize, tree document, path).
  virtual void returns(Call call, const std::string& answer) = 0;
  virtual void fails(Call call, const ErrorText& error) = 0;

 protected:
  ~CallListener() = default;
};

// Carries out a call under the eyes of a listener. `tell` makes the answer's text of what the host gave.
template <class Body, class Tell>
auto listenedTo(CallListener& listener, const CallText& text, Body body, Tell tell) {
  const CallListener::Call call = listener.begins(text);
  try {
    listener.enters(call);
    auto result = body();
    listener.returns(call, tell(result));
    return result;
  } catch (...) {
    listener.fails(call, currentError());
    throw;
  }
}

template <class Body>
auto listenedTo(CallListener& listener, const CallText& text, Body body) {
  if constexpr (std::is_void_v<decltype(body())>)
    listenedTo(
        listener, text, [&] { return body(), 0; }, [](int) { return std::string(); });
  else
    return listenedTo(listener, text, body, [](const auto&) { return std::string(); });
}

}  // namespace ostrand
