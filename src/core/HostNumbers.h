#pragma once

// The numbers that the host and the views agree on.
namespace ostrand {

// Of ViewSetCommunicationMode.
namespace Mode {
inline constexpr int kLocalAcceptance = 10;
inline constexpr int kDownload = 11;
inline constexpr int kBusy = 20;
inline constexpr int kFree = 21;
}  // namespace Mode

// What AskUser answers. A flow that may go on asks for the one, a flow that may be stopped for the other.
namespace Answer {
inline constexpr int kNone = 0;  // the question could not be asked
inline constexpr int kGoOn = 4;
inline constexpr int kStop = 5;
}  // namespace Answer

// The lowest user level at which a button writes to the device.
inline constexpr int kWritingLevel = 3;

}  // namespace ostrand
