#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/base/RuntimeError.h"
#include "platform/controls/Value.h"
#include "platform/xml/Node.h"

namespace ostrand {

// Members of a class by their names, for callers that know no more of it (a transcript's `call`): what the compiler resolves
// elsewhere stands here in a table.

using MemberArguments = std::vector<Value>;
// What a member answers: nothing, a value, or a node.
using MemberAnswer = std::variant<std::monostate, Value, Node>;
using EventListener = std::function<void(std::string_view event, const MemberArguments& arguments)>;

template <class T>
struct Member {
  std::string_view name;
  std::string_view form;  // an argument each: i a whole number, t a text, b a flag
  MemberAnswer (*call)(T&, const MemberArguments&);
};

inline bool haveForm(const MemberArguments& arguments, std::string_view form) {
  if (form.size() != arguments.size()) return false;
  for (std::size_t i = 0; i < form.size(); ++i)
    if (form[i] != (std::holds_alternative<bool>(arguments[i]) ? 'b' : std::holds_alternative<int>(arguments[i]) ? 'i' : 't')) return false;
  return true;
}

// What calls the member of this name; empty if there is none, or no target. RuntimeError 438 for a member with other arguments.
template <class T>
std::function<MemberAnswer()> findMember(std::span<const Member<T>> all, T* target, std::string_view name, const MemberArguments& arguments) {
  bool isKnown = false;
  for (const Member<T>& each : all) {
    if (!target || each.name != name) continue;
    if (haveForm(arguments, each.form)) return [&each, target, arguments] { return each.call(*target, arguments); };
    isKnown = true;
  }
  if (isKnown) throw RuntimeError(RuntimeError::NoSuchMember, std::string(name) + " takes other arguments");
  return nullptr;
}

}  // namespace ostrand
