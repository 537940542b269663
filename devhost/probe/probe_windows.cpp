// The report of `talq --probe`: what a module's renderer gets in each way to open it, and the machine around it.
#include <windows.h>

#include <GL/gl.h>
#include <GL/glu.h>

#include <span>
#include <string>
#include <vector>

#include "devhost/gl_trace/format.h"
#include "devhost/probe/probe_device.h"
#include "devhost/probe/probe_format.h"
#include "devhost/runtime/imports.h"
#include "devhost/runtime/runtime.h"
#include "devhost/runtime/text.h"

namespace devhost {
namespace {

// What the module asked for when it last chose a pixel format, and what it called for that.
PIXELFORMATDESCRIPTOR asked;
decltype(&ChoosePixelFormat) choose = nullptr;

int WINAPI NoteAndChoose(HDC device, const PIXELFORMATDESCRIPTOR* descriptor) {
  asked = *descriptor;
  return choose(device, descriptor);
}

// A way for a script to open a renderer.
struct Opening {
  const char* name;
  bool onWindow;
  bool doubleBuffered;
  bool accelerated;
};

constexpr Opening kOpenings[] = {
    {"a memory bitmap", false, false, false},
    {"a window", true, false, false},
    {"a window, double-buffered", true, true, false},
    {"a window, with the accelerator", true, false, true},
    {"a window, with the accelerator, double-buffered", true, true, true},
};

// Opens the module's renderer as a script would, and closes it; false with an error raised.
bool OpenRenderer(const Opening& opening) {
  Variable device;
  Variable renderer;  // declared behind the device, so that it goes first
  std::vector<Variable> size(2);
  Assign(size[0], Variable(kProbeSide));
  Assign(size[1], Variable(kProbeSide));
  if (opening.onWindow) AssignText(size.emplace_back(), "Probe");
  Variable nothing;
  Variable doubleBuffered(opening.doubleBuffered ? 1 : 0);
  Variable accelerated(opening.accelerated ? 1 : 0);
  const auto call = [&](const char* method, Variable& argument) {
    return CallMethod(nothing, renderer, method, std::span(&argument, 1));
  };
  return Construct(device, "MDC", size) && Construct(renderer, "TOpenGL", {}) &&
         call("EnableDoubleBuff", doubleBuffered) && call("UseAccelerator", accelerated) &&
         call(opening.onWindow ? "Open" : "OpenBitmap", device) && CallMethod(nothing, renderer, "Close", {});
}

// The descriptor, as the module filled it in.
std::string DescribeAsked() {
  return "    asked for: " + gl_trace::Format(gl_trace::PixelFormatFlags{asked.dwFlags}) + "; pixel type " +
         Decimal(asked.iPixelType) + "; bits: colour " + Decimal(asked.cColorBits) + ", depth " +
         Decimal(asked.cDepthBits) + ", accumulated alpha " + Decimal(asked.cAccumAlphaBits) + "\n";
}

std::string Probe(const Opening& opening) {
  asked = {};
  std::string report = std::string("  ") + opening.name + ": ";
  if (OpenRenderer(opening)) {
    report += "the renderer opens\n";
  } else {
    report += "the renderer does not open: " + PendingError()->text + "\n";
    ClearError();
  }
  if (asked.nSize == 0) return report;
  report += DescribeAsked();
  const auto tryOn = [&](const char* name, const ProbeDevice& target) {
    report += name;
    report += target.Device() ? TryFormat(target.Device(), asked) : "    there is none\n";
  };
  if (opening.onWindow) {
    ProbeDevice window;
    window.OpenWindow();
    tryOn("", window);
  } else {
    for (const WORD bits : {WORD{24}, WORD{32}}) {
      ProbeDevice bitmap;
      bitmap.OpenBitmap(bits);
      tryOn(bits == 24 ? "   of 24 bits a pixel:\n" : "   of 32 bits a pixel:\n", bitmap);
    }
  }
  return report;
}

// A library's function; null where it has none of this name.
template <class F>
F* LibraryFunction(const wchar_t* library, const char* name) {
  const HMODULE handle = LoadLibraryW(library);
  return handle ? reinterpret_cast<F*>(reinterpret_cast<void*>(GetProcAddress(handle, name))) : nullptr;
}

// Windows' own number, and Wine's beside it.
std::string DescribeSystem() {
  OSVERSIONINFOW version{};
  version.dwOSVersionInfoSize = sizeof version;
  if (auto* getVersion = LibraryFunction<LONG WINAPI(OSVERSIONINFOW*)>(L"ntdll.dll", "RtlGetVersion")) {
    getVersion(&version);
  }
  const std::string text = "Windows " + Decimal(version.dwMajorVersion) + "." + Decimal(version.dwMinorVersion) + "." +
                           Decimal(version.dwBuildNumber);
  auto* wineVersion = LibraryFunction<const char*()>(L"ntdll.dll", "wine_get_version");
  return wineVersion ? text + " (Wine " + wineVersion() + ")" : text;
}

std::string DescribeGlu() {
  auto* getText = LibraryFunction<decltype(gluGetString)>(L"glu32.dll", "gluGetString");
  return getText ? reinterpret_cast<const char*>(getText(GLU_VERSION)) : "there is none";
}

}  // namespace

std::string ProbeOpenGl(const Module& module) {
  for (const Import& import : ImportsOf(module.handle)) {
    if (import.function != "ChoosePixelFormat") continue;
    choose = reinterpret_cast<decltype(choose)>(*import.address);
    Redirect(import, reinterpret_cast<void*>(NoteAndChoose));
  }
  std::string report = "module:     " + module.version + "\nsystem:     " + DescribeSystem() + "\ncode pages: ANSI " +
                       Decimal(GetACP()) + ", OEM " + Decimal(GetOEMCP()) + ", console input " +
                       Decimal(GetConsoleCP()) + ", console output " + Decimal(GetConsoleOutputCP()) +
                       "\nGLU:        " + DescribeGlu() + "\nrenderers:\n";
  for (const Opening& opening : kOpenings) report += Probe(opening);
  return report;
}

}  // namespace devhost
