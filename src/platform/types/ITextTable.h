#pragma once

#include <string>

#include "platform/types/IObject.h"

namespace ostrand {

// The host's texts in the user's language. Every operation may throw RuntimeError; a key without a text
// gives whatever the host shows for it, usually the key itself.
class ITextTable : public virtual IObject {
 public:
  static constexpr Guid kId = Guid::of("6f0a41d2-5d0e-4a52-9f3c-0d6c1c9b1a01");

  virtual std::string GetText(const std::string& key) = 0;
  virtual std::string GetLabel(const std::string& key) = 0;
  virtual std::string GetSectionText(const std::string& key, const std::string& section) = 0;
};

}  // namespace ostrand
