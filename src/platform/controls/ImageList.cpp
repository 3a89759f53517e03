#include "platform/controls/ImageList.h"

#include "platform/base/RuntimeError.h"

namespace ostrand {

const Picture& ImageList::ListImage(const std::string& key) const {
  announce("ListImage", " \"" + key + "\"");
  const auto found = mPictures.find(key);
  if (found == mPictures.end()) throw RuntimeError(RuntimeError::BadArgument, name() + " has no picture \"" + key + "\"");
  return found->second;
}

}  // namespace ostrand
