// The states of a renderer.
#pragma once

#include "binding/errors.h"
#include "tests/unit/support/fixture.h"

struct RendererState {
  const char* name;
  bool isOpen;
  bool isBound;
};

// A renderer is closed and bound when an opening failed, and open and unbound when its device was freed.
inline constexpr RendererState kRendererStates[] = {
    {"Closed", false, false}, {"ClosedAndBound", false, true}, {"Unbound", true, false}, {"Drawable", true, true}};

// A new renderer in this state, and an empty log.
inline Variable RendererIn(const RendererState& state) {
  if (state.isOpen) {
    Variable renderer = OpenRenderer();
    if (!state.isBound) Call(renderer, "FreeMDC");
    TakeLog();
    return renderer;
  }
  Variable renderer = NewRenderer();
  if (state.isBound) {
    recorder::Get().answers.createsContexts = false;
    Call(renderer, "Open", NewObject("MDC"));
    recorder::Get().answers.createsContexts = true;
    ExpectModuleError(OGL_WRONG_DC, "The Device Context is not Valid System error #0");
    TakeLog();
  }
  return renderer;
}

// Those in which nothing can be drawn.
inline std::vector<Variable> UndrawableRenderers() {
  std::vector<Variable> renderers;
  for (const RendererState& state : kRendererStates) {
    if (!state.isOpen || !state.isBound) renderers.push_back(RendererIn(state));
  }
  return renderers;
}
