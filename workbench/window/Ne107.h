#pragma once

#include <QColor>
#include <QPixmap>
#include <string>
#include <string_view>
#include <vector>

namespace ostrand {

// What a device says of itself in the four signals of NAMUR NE 107, beside "good" and "nobody knows".
enum class Ne107 { Failure, FunctionCheck, OutOfSpecification, Maintenance, Good, Unknown };

namespace ne107 {

// What a status bit of this name stands for when it is set; Good if nothing.
Ne107 signalOf(std::string_view parameter);
// Most important first; the user may choose another order.
const std::vector<Ne107>& usualPriorities();
// The one that is shown when all of these are in force; Good if none is.
Ne107 mostImportant(const std::vector<Ne107>& inForce, const std::vector<Ne107>& priorities);

// "F", "C", "S", "M"; empty for the two others.
const char* letter(Ne107 state);
const char* word(Ne107 state);
// Each state has its own shape and colour, so that neither is needed alone.
QPixmap symbol(Ne107 state, int size, double pixelRatio);

}  // namespace ne107
}  // namespace ostrand
