#include "ui/toolkit/Contrast.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace tarnwell::ui {
namespace {

constexpr int BlendStep = 5;  // of 100 parts

// Light as the eye weighs it, 0 to 1.
double Luminance(const QColor& colour) {
  static const std::array<double, 256> linear = [] {
    std::array<double, 256> table{};
    for (std::size_t at = 0; at < table.size(); ++at) {
      const double part = static_cast<double>(at) / 255;
      table[at] = part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    }
    return table;
  }();
  const auto part = [](int value) { return linear[static_cast<std::size_t>(value)]; };
  return 0.2126 * part(colour.red()) + 0.7152 * part(colour.green()) + 0.0722 * part(colour.blue());
}

double Least(const QColor& colour, std::initializer_list<QColor> backs) {
  double least = 21;
  for (const QColor& back : backs) least = std::min(least, Contrast(colour, back));
  return least;
}

}  // namespace

double Contrast(const QColor& left, const QColor& right) {
  const auto [low, high] = std::minmax({Luminance(left), Luminance(right)});
  return (high + 0.05) / (low + 0.05);
}

QColor Blend(const QColor& under, const QColor& over, int percent) {
  const auto mix = [percent](int low, int high) {
    return (low * (100 - percent) + high * percent) / 100;
  };
  return QColor(mix(under.red(), over.red()), mix(under.green(), over.green()),
                mix(under.blue(), over.blue()));
}

QColor TextOn(const QColor& back) {
  return Contrast(back, Qt::black) >= Contrast(back, Qt::white) ? Qt::black : Qt::white;
}

QColor Distinct(const QColor& colour, std::initializer_list<QColor> backs, double contrast) {
  QColor best = colour;
  double most = Least(colour, backs);
  for (int percent = BlendStep; percent <= 100 && most < contrast; percent += BlendStep) {
    for (const QColor& end : {QColor(Qt::black), QColor(Qt::white)}) {
      const QColor tried = Blend(colour, end, percent);
      const double reached = Least(tried, backs);
      if (reached > most) {
        best = tried;
        most = reached;
      }
    }
  }
  return best;
}

}  // namespace tarnwell::ui
