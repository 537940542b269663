#include "devhost/window/input_names.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "devhost/runtime/near_names.h"
#include "devhost/runtime/runtime.h"

namespace devhost {
namespace {

struct NamedKey {
  std::string_view name;
  std::size_t key;
};

// Letters and digits have the numbers of their characters.
constexpr NamedKey kNamedKeys[] = {
    {"Left", 0x25},   {"Right", 0x27},    {"Up", 0x26},        {"Down", 0x28},    {"Space", 0x20}, {"Enter", 0x0D},
    {"Escape", 0x1B}, {"Tab", 0x09},      {"Backspace", 0x08}, {"Delete", 0x2E},  {"Home", 0x24},  {"End", 0x23},
    {"PageUp", 0x21}, {"PageDown", 0x22}, {"F1", 0x70},        {"F2", 0x71},      {"F3", 0x72},    {"F4", 0x73},
    {"F5", 0x74},     {"F6", 0x75},       {"F7", 0x76},        {"F8", 0x77},      {"F9", 0x78},    {"F10", 0x79},
    {"F11", 0x7A},    {"F12", 0x7B},      {"Shift", 0x10},     {"Control", 0x11}, {"Alt", 0x12}};

// In the order of MouseButton.
constexpr std::string_view kButtonNames[kMouseButtons] = {"left", "middle", "right"};

bool IsCharacterKey(char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); }

void RaiseUnknown(std::string_view what, std::string_view name, const std::vector<std::string>& candidates,
                  const char* allNames) {
  std::string hint = DidYouMean(name, candidates);
  if (hint.empty()) hint = allNames;
  Raise(kErrorName, "There is no " + std::string(what) + " \"" + std::string(name) + "\".", std::move(hint));
}

std::vector<std::string> KeyNames() {
  std::vector<std::string> names;
  for (const NamedKey& each : kNamedKeys) names.emplace_back(each.name);
  for (char c = 'A'; c <= 'Z'; ++c) names.emplace_back(1, c);
  return names;
}

}  // namespace

std::optional<std::size_t> KeyNamed(std::string_view name) {
  if (name.size() == 1 && IsCharacterKey(name[0])) return static_cast<unsigned char>(name[0]);
  const auto* found = std::find_if(std::begin(kNamedKeys), std::end(kNamedKeys),
                                   [name](const NamedKey& each) { return each.name == name; });
  if (found != std::end(kNamedKeys)) return found->key;
  RaiseUnknown("key", name, KeyNames(),
               "keys are A to Z, 0 to 9, F1 to F12, Left, Right, Up, Down, Space, Enter, Escape, Tab, Backspace, "
               "Delete, Home, End, PageUp, PageDown, Shift, Control and Alt");
  return std::nullopt;
}

std::optional<MouseButton> ButtonNamed(std::string_view name) {
  const auto* found = std::find(std::begin(kButtonNames), std::end(kButtonNames), name);
  if (found != std::end(kButtonNames)) return static_cast<MouseButton>(found - std::begin(kButtonNames));
  RaiseUnknown("mouse button", name, {std::begin(kButtonNames), std::end(kButtonNames)},
               "buttons are left, middle and right");
  return std::nullopt;
}

}  // namespace devhost
