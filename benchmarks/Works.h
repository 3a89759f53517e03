#pragma once

#include <initializer_list>
#include <string>

#include "benchmarks/Work.h"

namespace ostrand::bench {

// Who does the work.
enum class By { Ostrand, Pugixml, Libxml };
std::string workName(By by, const std::string& what, std::initializer_list<int> sizes = {});

// The first walk of a data set that has just been read, with a view that has not seen one: all indexes that
// it needs are built on the way. The peers walk the classic way; reading does not count.
Work firstWalk(By by, int parameters, int controls);
// The walk of a view of so many controls over a data set that a view of 20 has walked before.
Work furtherWalk(int parameters, int controls);
// Six views of 60 controls one after another over a data set that has just been read.
Work sixViews(int parameters);
// A new answer to a view of 60 controls that shows the values of another one, reading included.
Work answer(By by, int items);

// An answer with an error code and so many items, of which some belong to the view of so many controls; already read.
Work errorAnswer(int items, int controls);
// One more element in the middle of so many that share its name, in a document that has been asked for it.
Work insertionAmong(int elements);

// The reading of a data set by Ostrand or pugixml, and by pugixml without its copy of the text.
Work read(By by, int parameters);
Work readInPlace(int parameters);

// The life of a view without documents: made, placed, with a messenger, localized, released.
Work lifeOfLargestView();
Work lifeOfView(int controls);
std::string nameOfLargestView();

// The bytes of heap for each parameter of an open data set, with the indexes that a view has needed.
double bytesPerParameter(By by, int parameters);
// The blocks of heap that are left when the view of a work has been released.
double blocksLeftBy(const Work& life);
// The signals that a view of 60 controls raises when the same answer comes once more.
double signalsOfSameAnswer(int items);

}  // namespace ostrand::bench
