#pragma once

#include <string_view>

namespace ostrand::simulator {

// A blade as its maker knows it: how much force a pulp of a consistency leaves on it, and which pulps it is made for.
struct Blade {
  std::string_view key;        // of the mapping `bladeType`, or of a blade that is built into its transmitter
  double newtonsPerPercent;    // for bleached softwood, at a low consistency
  std::string_view pulpTypes;  // keys of the mapping `pulpType`, a blank behind each; empty for all

  // A key that nobody knows gets the general blade, for all pulps.
  static const Blade& of(std::string_view key);
  bool allows(std::string_view pulpType) const;

  // N from %Cs and back. `pulpFactor` is the force of the pulp against that of bleached softwood.
  double shearForce(double consistency, double pulpFactor) const;
  double consistency(double shearForce, double pulpFactor) const;
};

// 1 for a pulp type that nobody knows.
double pulpFactor(std::string_view pulpType);

}  // namespace ostrand::simulator
