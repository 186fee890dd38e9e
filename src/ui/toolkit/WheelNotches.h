// Adds up the turns of a wheel to whole notches: touchpads turn by small steps.
#pragma once

#include <algorithm>

namespace tarnwell::ui {

class WheelNotches {
 public:
  static constexpr int Angle = 120;  // of one notch, as Qt and the lists count

  // The notches that this turn completes, above 0 away from the user.
  int Add(int angle) {
    // Steps of the other direction are of another gesture.
    if ((turned_ > 0) != (angle > 0)) turned_ = 0;
    turned_ += angle;
    const int notches = std::clamp(turned_ / Angle, -Most, Most);
    turned_ %= Angle;
    return notches;
  }

 private:
  static constexpr int Most = 20;  // of one turn

  int turned_ = 0;  // short of a notch
};

}  // namespace tarnwell::ui
