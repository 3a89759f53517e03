#pragma once

#include <string>
#include <string_view>

#include "platform/types/Messenger.h"

namespace ostrand {

// The words in which the views tell the host the state of a value; each value bears one of both kinds.
namespace EditWord {
inline const std::string kOriginal = "original";
inline const std::string kEdited = "edited";
inline const std::string kEditedError = "editedError";
inline const std::string kCorrected = "corrected";
}  // namespace EditWord

namespace SyncWord {
inline const std::string kNotRead = "notRead";
inline const std::string kSync = "sync";
inline const std::string kSyncError = "syncError";
inline const std::string kReSync = "reSync";
}  // namespace SyncWord

// One reading of a value: moves its sync word and tells the host if it moved. A messenger may be absent. The word must outlive
// the call; the name is not looked at any more once the host was called.
void forwardSyncChanges(std::string_view name, bool succeeded, std::string& word, const Ref<Messenger>& messenger);

// Moves the edit word of a value, by three rules of which each sees the result of the one before, and
// tells the host each move.
void forwardEditChanges(std::string_view name, bool edited, bool correct, std::string& word, const Ref<Messenger>& messenger);

}  // namespace ostrand
