#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/desktop/Desktop.h"
#include "platform/xml/Document.h"

// The protocol of a simulated transmitter:
//
//   host    <dtm xmlns="x-schema:TAVCommunicationSchema.xml"><communicationRequest name="sampling" access="write">
//             <item name="sampleStart" unit="noUnit"><integerVal>0</integerVal></item></communicationRequest></dtm>
//   device  <comm:dtm xmlns:comm="x-schema:TAVCommunicationSchema.xml">
//             <comm:communicationResponse name="sampling" access="write" isFinal="1" responseStatus="device">
//               <comm:item name="sampleStart" unit="noUnit"><comm:integerVal>0</comm:integerVal></comm:item>
//             </comm:communicationResponse></comm:dtm>
//
// - Requests are carried out in the order in which they came, one transaction after the other. A transaction carries a
//   few items only; each one's items come back in an answer of their own, and the last answer of a request bears
//   isFinal="1". Answers come out of the desktop's event pump, never from inside request().
// - A read is answered with each item that it asks for, in its unit and type, a float that the device does not have as
//   "NaN". A read without items asks for the group of its name.
// - A write is answered with what was written. It is taken over as a whole when its last transaction has come. A refusal
//   leaves the device as it was and is the only answer: a final one with `errorCode`, a key of the text table, and the items
//   that it is about, without values. On PROFIBUS a write that makes the device act is refused without an error: its final
//   answer has no items, and a read of `actionStatus` tells why.
// - On HART each channel of a loop test is a command of its own: it is taken over, and answered, by itself, one item to an
//   answer. A refusal ends the request; the channels before it are in the test by then.
// - On HART a sample that is running ends when its own average and deviation are read, and nothing else with them.
// - A GYRE transmitter starts its sample by a read of `sampleStart`, and tells of the samples that it keeps as simulator/
//   GyreHistory.h says.
// - An item that the device does not have is named in a final answer "missingItems": in a read after the values of the
//   others, in a write instead of it; one that it has no command for likewise, under the error of a command that it does
//   not know. An item that comes twice counts once, with its first text.
// - What is no request at all is answered by "communicationError" under the name that it bears, if any.
//
// The same seed, clock and requests give the same bytes.

namespace ostrand {

struct DeviceKind {
  std::string_view name;
  std::string_view dataSet;  // its data set, relative to the data folder
  std::string_view description;
};

const std::vector<DeviceKind>& deviceKinds();

struct FaultKind {
  std::string_view name;
  std::string_view argument;  // what is to be told with it, empty if nothing
  std::string_view description;
};

class Device {
 public:
  // One call for each answer document.
  using Answer = std::function<void(const Document& answer)>;

  virtual ~Device() = default;

  // Queues a request. From inside an answer the device may be asked again, told to forget everything, and destroyed.
  virtual void request(const Document& request, Answer answer) = 0;
  // Requests not yet finished. One that the device leaves unanswered counts until its time on the bus is over.
  virtual int underWay() const = 0;
  // Forgets all requests; none of them is answered any more. What was written and not yet taken over is lost.
  virtual void cancelAll() = 0;

  // Several may be in force at once; "none" ends them all. An unknown name and an argument that cannot be used are
  // RuntimeError 5.
  virtual void setFault(std::string_view name, std::string_view argument) = 0;
  static const std::vector<FaultKind>& faults();

  // Seconds from a transaction's start to its answer, a fault "slow" included.
  virtual double busTimePerTransaction() const = 0;
  // What the laboratory would find in sample 1 or 2, or in a kept sample of this number, in %Cs; nothing before the sample has
  // been taken.
  virtual std::optional<double> laboratoryValue(int sample) const = 0;
};

// A device that has just been switched on, with the values of the data set in its memory. The data set is read once and
// not kept. An unknown name is RuntimeError 5, an empty document 91. The desktop must outlive the device.
std::unique_ptr<Device> makeDevice(std::string_view name, Desktop& desktop, const Document& dataSet, unsigned seed);

}  // namespace ostrand
