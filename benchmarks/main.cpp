// ostrand_bench                  the table
// ostrand_bench --count          every work once, for callgrind to count
// ostrand_bench --counts FOLDER  the table, with the ratios of instructions from callgrind's files
//               --only TEXT      only the sections with this text in their titles

#include <cmath>
#include <cstdio>
#include <exception>
#include <set>
#include <stdexcept>
#include <string_view>

#include "benchmarks/Heap.h"
#include "benchmarks/Rows.h"

using namespace ostrand::bench;

namespace {

struct Read {
  double ours = 0;
  double theirs = 0;

  double ratio(const Figure& figure) const {
    switch (figure.form) {
      case Figure::TimesFaster: return theirs / ours;
      case Figure::Exponent: return std::log(ours / theirs) / std::log(figure.growth);
      case Figure::Seconds: return ours / *figure.limit;
      default: return ours / theirs;
    }
  }
};

bool reached(const Figure& figure, const Read& read) {
  switch (figure.form) {
    case Figure::TimesFaster: return read.ratio(figure) >= *figure.limit;
    case Figure::Seconds:
    case Figure::Number: return read.ours <= *figure.limit;
    default: return read.ratio(figure) <= *figure.limit;
  }
}

std::string format(const char* form, double value) {
  char text[64];
  std::snprintf(text, sizeof text, form, value);
  return text;
}

std::string asTime(double seconds) { return seconds < 0.001 ? format("%.2f us", seconds * 1e6) : format("%.2f ms", seconds * 1e3); }

std::string asRatio(const Figure& figure, double ratio) {
  if (figure.form == Figure::TimesFaster) return format(ratio < 10 ? "%.1f x" : "%.0f x", ratio);
  return format("%.2f", ratio);
}

std::string asLimit(const Figure& figure) {
  if (!figure.limit) return "";
  switch (figure.form) {
    case Figure::TimesFaster: return ">= " + format("%.0f x", *figure.limit);
    case Figure::Seconds: return "<= " + asTime(*figure.limit);
    case Figure::Number: return "<= " + format("%.0f", *figure.limit);
    default: return "<= " + format("%.2f", *figure.limit);
  }
}

void printCells(const char* what, const std::string& ours, const std::string& peer, const std::string& theirs, const std::string& ratio,
                const std::string& instructions, const std::string& limit, const char* verdict) {
  std::printf("%-44s %11s  %-14s %11s %8s %8s  %-10s %s\n", what, ours.c_str(), peer.c_str(), theirs.c_str(), ratio.c_str(), instructions.c_str(),
              limit.c_str(), verdict);
}

class Table {
 public:
  explicit Table(std::map<std::string, double> counts) : mCounts(std::move(counts)) {}

  // False if a row misses what it must reach.
  bool print(const std::vector<Section>& sections) const {
    bool all = true;
    printCells("medians; ours and the peer take turns", "ours", "peer", "peer's", "ratio", mCounts.empty() ? "" : "instr.", "reach", "");
    for (const Section& section : sections) {
      std::printf("\n%s\n", section.title.c_str());
      for (const Row& row : section.rows) all &= print(row);
    }
    return all;
  }

 private:
  bool print(const Row& row) const {
    const Figure& figure = row.figure;
    const bool works = !row.ourNumber;
    const Read read = works ? time(row) : Read{row.ourNumber(), row.theirNumber ? row.theirNumber() : 0};
    const auto shown = [&](double value) { return works ? asTime(value) : format("%.0f", value); };
    const bool good = !figure.limit || reached(figure, read);
    printCells(row.what.c_str(), shown(read.ours), row.peer, read.theirs > 0 ? shown(read.theirs) : "",
               read.theirs > 0 || figure.form == Figure::Seconds ? asRatio(figure, read.ratio(figure)) : "", instructions(row), asLimit(figure),
               !figure.limit ? ""
               : good        ? "reached"
                             : "MISSED");
    std::fflush(stdout);
    return good;
  }

  static Read time(const Row& row) {
    if (!row.theirs.once) return {timed({row.ours})[0]};
    const auto seconds = timed({row.ours, row.theirs});
    return {seconds[0], seconds[1]};
  }

  std::string instructions(const Row& row) const {
    const auto ours = mCounts.find(row.ours.name), theirs = mCounts.find(row.theirs.name);
    if (ours == mCounts.end() || theirs == mCounts.end()) return "";
    return asRatio(row.figure, Read{ours->second, theirs->second}.ratio(row.figure));
  }

  std::map<std::string, double> mCounts;
};

void countAll(const std::vector<Section>& sections) {
  std::set<std::string> done;
  for (const Section& section : sections)
    for (const Row& row : section.rows)
      for (const Work* work : {&row.ours, &row.theirs})
        if (work->once && done.insert(work->name).second) counted(*work);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    Heap::watch();
    bool counts = false;
    std::map<std::string, double> instructions;
    std::vector<Section> chosen = sections();
    for (int i = 1; i < argc; ++i) {
      const std::string_view option = argv[i];
      if (option == "--count")
        counts = true;
      else if (option == "--counts" && i + 1 < argc)
        instructions = readCounts(argv[++i]);
      else if (option == "--only" && i + 1 < argc)
        std::erase_if(chosen, [part = argv[++i]](const Section& section) { return section.title.find(part) == std::string::npos; });
      else
        throw std::runtime_error("no such option: " + std::string(option));
    }
    if (counts) return countAll(chosen), 0;
    return Table(std::move(instructions)).print(chosen) ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 2;
  }
}
