#pragma once

#include "platform/types/IObject.h"
#include "platform/xml/Document.h"

namespace ostrand {

// Documents that the host pushes into a view. Import and offline take the persistent-data document, error
// and online a communication document. A view may change the document that it is handed.
class ITaviDataUser : public virtual IObject {
 public:
  static constexpr Guid kId = Guid::of("6f0a41d2-5d0e-4a52-9f3c-0d6c1c9b1a08");

  virtual void SetErrorData(const Document& doc) = 0;
  virtual void SetImportData(const Document& doc) = 0;
  virtual void SetOfflineData(const Document& doc) = 0;
  virtual void SetOnlineData(const Document& doc) = 0;
};

}  // namespace ostrand
