// MDC's methods for what a window's user does: Pump, mouse, keys, size. Only Windows has them.
#include <cstdio>

#include "devhost/classes/mdc.h"
#include "devhost/runtime/text.h"
#include "devhost/runtime/wide_text.h"
#include "devhost/window/input_names.h"

namespace devhost {
namespace {

// The window of a handler's call, perhaps closed; null with an error raised for a memory bitmap.
Window* WindowOf(VarRegister* args, int argc) {
  const Device* device = DeviceOf(args, argc);
  if (!device) return nullptr;
  if (!device->window) {
    Raise(kErrorConversion, "The MDC is a memory bitmap, no window: new MDC(width, height, title) makes a window.");
  }
  return device->window.get();
}

const InputMoment* MomentOf(VarRegister* args, int argc) {
  const Window* window = WindowOf(args, argc);
  return window ? &window->Moment() : nullptr;
}

// What a row of Pump ends with. What the script has printed is seen while its window lives.
void FinishPump(VarRegister& result, const Window& window) {
  std::fflush(stdout);
  result.SetBool(window.IsOpen());
}

void Pump(VarRegister& result, VarRegister* args, int argc, Processor*) {
  Window* window = WindowOf(args, argc);
  if (!window) return;
  window->Pump();
  FinishPump(result, *window);
}

void PumpFrame(VarRegister& result, VarRegister* args, int argc, Processor*) {
  Window* window = WindowOf(args, argc);
  if (!window) return;
  const double framesPerSecond = Number(args[0]);
  if (!(framesPerSecond > 0)) {
    Raise(kErrorConversion,
          "Pump takes a number of frames per second above 0, not " + ShortestText(framesPerSecond) + ".");
    return;
  }
  window->Pump(framesPerSecond);
  FinishPump(result, *window);
}

void SetTitle(VarRegister&, VarRegister* args, int argc, Processor*) {
  if (Window* window = WindowOf(args, argc)) window->SetTitle(TextIn(args[0].GetVar()));
}

void WasResized(VarRegister& result, VarRegister* args, int argc, Processor*) {
  if (const InputMoment* moment = MomentOf(args, argc)) result.SetBool(moment->resized);
}

void MouseX(VarRegister& result, VarRegister* args, int argc, Processor*) {
  if (const InputMoment* moment = MomentOf(args, argc)) result = moment->mouseX;
}

void MouseY(VarRegister& result, VarRegister* args, int argc, Processor*) {
  if (const InputMoment* moment = MomentOf(args, argc)) result = moment->mouseY;
}

void Wheel(VarRegister& result, VarRegister* args, int argc, Processor*) {
  if (const InputMoment* moment = MomentOf(args, argc)) result.GetVar() = moment->wheel;
}

void TypedText(VarRegister& result, VarRegister* args, int argc, Processor*) {
  if (const InputMoment* moment = MomentOf(args, argc)) AssignText(result, Utf8Text(moment->typed));
}

// Whether the named button is in that set of the moment.
template <auto set>
void AskButton(VarRegister& result, VarRegister* args, int argc, Processor*) {
  const InputMoment* moment = MomentOf(args, argc);
  if (!moment) return;
  if (const auto button = ButtonNamed(TextIn(args[0].GetVar()))) {
    result.SetBool((moment->*set).test(static_cast<std::size_t>(*button)));
  }
}

// The same for the named key.
template <auto set>
void AskKey(VarRegister& result, VarRegister* args, int argc, Processor*) {
  const InputMoment* moment = MomentOf(args, argc);
  if (!moment) return;
  if (const auto key = KeyNamed(TextIn(args[0].GetVar()))) result.SetBool((moment->*set).test(*key));
}

}  // namespace

const MethodEntry kDeviceInputMethods[] = {
    {Pump, "MDC::Pump(void)"},
    {PumpFrame, "MDC::Pump(number)"},
    {SetTitle, "MDC::SetTitle(refer object String)"},
    {WasResized, "MDC::WasResized(void)"},
    {MouseX, "MDC::MouseX(void)"},
    {MouseY, "MDC::MouseY(void)"},
    {AskButton<&InputMoment::buttonsDown>, "MDC::IsMouseDown(refer object String)"},
    {AskButton<&InputMoment::buttonsPressed>, "MDC::WasMousePressed(refer object String)"},
    {AskButton<&InputMoment::buttonsReleased>, "MDC::WasMouseReleased(refer object String)"},
    {Wheel, "MDC::Wheel(void)"},
    {AskKey<&InputMoment::keysDown>, "MDC::IsKeyDown(refer object String)"},
    {AskKey<&InputMoment::keysPressed>, "MDC::WasKeyPressed(refer object String)"},
    {TypedText, "MDC::TypedText(void)"},
    {nullptr, nullptr},
};

}  // namespace devhost
