#pragma once

#include <map>
#include <string>

#include "platform/controls/Control.h"
#include "platform/types/ITaviDeviceSpecific.h"

namespace ostrand {

// Pictures by key, laid in when the form is declared. It is never shown itself.
class ImageList : public Control {
 public:
  using Control::Control;
  std::string_view className() const override { return "ImageList"; }

  void Add(const std::string& key, Picture picture) { mPictures[key] = std::move(picture); }
  // Error 5 for a key that is not there.
  const Picture& ListImage(const std::string& key) const;

 protected:
  Kind ownKind() const override { return Kind::NoData; }

 private:
  std::map<std::string, Picture> mPictures;
};

}  // namespace ostrand
