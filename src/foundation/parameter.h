#pragma once
// A setting: a named object with default, limits and current value, most of them bound to
// a control of the main window. Values are plain memory: the window thread writes them,
// other threads read them at their next use.
#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace orv {

struct Parameter {
  explicit Parameter(std::string n) : name(std::move(n)) {}
  virtual ~Parameter() = default;
  Parameter(const Parameter&) = delete;
  Parameter& operator=(const Parameter&) = delete;

  std::string name;  // the name in parameters.xml, or a button's caption
};

template <class T>
struct ValueParameter : Parameter {
  ValueParameter(std::string n, T def) : Parameter(std::move(n)), defaultValue(def), minValue(def), maxValue(def), value(def) {}
  ValueParameter(std::string n, T def, T min, T max)
      : Parameter(std::move(n)), defaultValue(def), minValue(min), maxValue(max), value(def) {}

  // Numbers are held to their limits whenever they are set.
  void set(T v) {
    if constexpr (std::is_arithmetic_v<T> && !std::is_same_v<T, bool>)
      value = std::clamp(v, minValue, maxValue);
    else
      value = std::move(v);
  }

  T defaultValue;
  T minValue;
  T maxValue;
  T value;
};

struct Control {
  Control(std::uint16_t id, std::int32_t yPos, std::string text = {}) : controlId(id), y(yPos), label(std::move(text)) {}
  std::uint16_t controlId;
  std::int32_t y;     // vertical position in window coordinates
  std::string label;  // text painted beside the control, empty when it has none
};

struct CheckboxParameter : ValueParameter<bool>, Control {
  CheckboxParameter(std::string n, bool def, std::uint16_t id, std::int32_t yPos, std::string text)
      : ValueParameter<bool>(std::move(n), def), Control(id, yPos, std::move(text)) {}
};

struct ComboParameter : ValueParameter<std::int32_t>, Control {
  ComboParameter(std::string n, std::int32_t def, std::vector<std::int32_t> list, std::uint16_t id, std::int32_t yPos)
      : ValueParameter<std::int32_t>(std::move(n), def, list.front(), list.back()),
        Control(id, yPos),
        choices(std::move(list)) {}
  std::vector<std::int32_t> choices;
};

struct FloatComboParameter : ValueParameter<float>, Control {
  FloatComboParameter(std::string n, float def, std::vector<float> list, std::uint16_t id, std::int32_t yPos)
      : ValueParameter<float>(std::move(n), def, list.front(), list.back()),
        Control(id, yPos),
        choices(std::move(list)) {}
  std::vector<float> choices;
};

struct EditParameter : ValueParameter<std::string>, Control {
  EditParameter(std::string n, std::string def, std::uint16_t id, std::int32_t yPos)
      : ValueParameter<std::string>(std::move(n), std::move(def)), Control(id, yPos) {}
};

struct StringComboParameter : EditParameter {
  StringComboParameter(std::string n, std::string def, std::vector<std::string> list, std::uint16_t id,
                       std::int32_t yPos)
      : EditParameter(std::move(n), std::move(def), id, yPos), choices(std::move(list)) {}
  std::vector<std::string> choices;
};

struct ButtonControl : Parameter, Control {
  ButtonControl(std::string caption, std::uint16_t id, std::int32_t yPos)
      : Parameter(std::move(caption)), Control(id, yPos) {}
};

}  // namespace orv
