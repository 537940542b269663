// The check of a script: it is told of the script's calls and of the module's.
#include <windows.h>

#include "devhost/check/findings.h"
#include "devhost/check/method_check.h"
#include "devhost/check/opengl_check.h"
#include "devhost/check/pixels.h"
#include "devhost/gl_trace/watch.h"
#include "devhost/runtime/call_observer.h"
#include "devhost/runtime/payload.h"
#include "devhost/runtime/runtime.h"

namespace devhost {
namespace {

class Check : public gl_trace::Watcher, public CallObserver {
 public:
  void Begins(const MethodCall& call) override { methods.Begins(call); }

  void Ends(const MethodCall& call, const Variable& result) override {
    // A frame is also read as a memory bitmap's bytes.
    const Signature& signature = call.method.signature;
    if (signature.className == "MDC" && signature.method == "GetDIBits") TakeBitmap(TextIn(result));
    methods.Ends(call);
  }

  void Before(const gl_trace::Call& call) override { openGl.Before(call); }

  // The module may ask for the system's last error.
  void After(const gl_trace::Call& call) override {
    const DWORD lastError = GetLastError();
    openGl.After(call);
    SetLastError(lastError);
  }

  std::string Report() const { return findings.Report(); }

 private:
  void TakeBitmap(std::string_view pixels) {
    const auto count = static_cast<int>(pixels.size() / 3);
    if (count > 0) openGl.Take(check::IsOneColor(reinterpret_cast<const unsigned char*>(pixels.data()), count, 1, 0));
  }

  check::Findings findings;
  check::MethodCheck methods{findings};
  check::OpenGlCheck openGl{findings, methods};
};

Check* running = nullptr;

}  // namespace

bool StartCheck(const Module& module) {
  running = new Check;
  ObserveCalls(running);
  return gl_trace::WatchOpenGl(module, running);
}

std::string FinishCheck() {
  ObserveCalls(nullptr);
  const std::string report = running ? running->Report() : "";
  delete running;
  running = nullptr;
  return report;
}

}  // namespace devhost
