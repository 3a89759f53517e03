#pragma once

#include <string>

namespace ostrand {

// Who answers for the user: a terminal, a window, a script. Texts are in the user's language already. Either member may pump
// events while it waits, so that views and answers go on under an open question.
class UserPrompt {
 public:
  static constexpr int kGoOn = 4;
  static constexpr int kStop = 5;

  // What the two answers to a question say that they do. The second one is safe, and the default: who only closes the question
  // gives it.
  struct Answers {
    std::string goOn;
    std::string stop;
  };

  // One of the two numbers above. Any other is passed on as it is: a view decides then for itself what it means.
  virtual int ask(const std::string& title, const std::string& message, const Answers& answers) = 0;
  // Returns when the user has seen it.
  virtual void show(const std::string& title, const std::string& message) = 0;

 protected:
  ~UserPrompt() = default;
};

}  // namespace ostrand
