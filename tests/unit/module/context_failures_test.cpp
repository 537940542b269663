// What is current, and how the renderer stands, where a call of WGL or GDI fails: the table of docs/testing.md.
#include <fstream>
#include <span>
#include <string>
#include <vector>

#include "devhost/runtime/modules.h"
#include "tests/unit/support/fixture.h"

namespace {

// Current before the renderer comes.
HGLRC const kEarlierContext = reinterpret_cast<HGLRC>(std::uintptr_t{0x88});
// Windows: where the renderer is open before the operation, and the one that the operation gets.
constexpr int kFirstWindow = 0x1000;
constexpr std::uintptr_t kSecondWindow = 0x2000;

// ---- What fails

void Choice() { recorder::Get().answers.pixelFormat = 0; }
void Creation() { recorder::Get().answers.createsContexts = false; }
void MakingCurrent() { recorder::Get().answers.makesCurrent = false; }
void Deletion() { recorder::Get().answers.deletesContexts = false; }
void ReturnToTheEarlierOne() { wglDeleteContext(kEarlierContext); }

// The window has got a format before.
void GiveFormat(int format) { recorder::Get().pixelFormats[reinterpret_cast<HDC>(kSecondWindow)] = format; }
void SettingAnotherFormat() { GiveFormat(7); }
void ChoiceBehindAFormat() {
  GiveFormat(1);
  Choice();
}

// ---- The table

struct Row {
  std::span<const char* const> methods;
  const char* before;  // the state of the renderer
  void (*fail)();
  const char* failure;  // in words
  const char* error;    // raised by the method
  const char* current;  // afterwards
  const char* after;    // the state of the renderer
};

constexpr const char* kOpening[] = {"Open", "OpenBitmap"};
constexpr const char* kBinding[] = {"BindMDC"};
constexpr const char* kFreeing[] = {"FreeMDC"};
constexpr const char* kClosing[] = {"Close"};
constexpr const char* kDestroying[] = {"~TOpenGL"};

constexpr char kNoFormat[] = "`ChoosePixelFormat`, so `SetPixelFormat` on a window without a format";
constexpr char kSomeFormat[] = "`ChoosePixelFormat`, so `SetPixelFormat` on a window with a format";
constexpr char kItsFormat[] = "`ChoosePixelFormat`, so `SetPixelFormat` on a window of its format";
constexpr char kAnotherFormat[] = "`SetPixelFormat` on a window of another format";
constexpr char kReturn[] = "`wglMakeCurrent` of the earlier one";

constexpr char kNone[] = "none";
constexpr char kEarlier[] = "the earlier one";
constexpr char kOwn[] = "its own";

constexpr char kOpenAndBound[] = "open, bound";
constexpr char kOpenUnbound[] = "open, not bound";
constexpr char kClosedButBound[] = "closed, bound";
constexpr char kClosed[] = "closed, not bound";
constexpr char kBoundTwice[] = "open, bound a second time";
constexpr char kGone[] = "gone";

constexpr Row kRows[] = {
    {kOpening, kClosed, Choice, kNoFormat, "`OGL_WRONG_DC`", kEarlier, kClosedButBound},
    {kOpening, kClosed, ChoiceBehindAFormat, kSomeFormat, "", kOwn, kOpenAndBound},
    {kOpening, kClosed, SettingAnotherFormat, kAnotherFormat, "", kOwn, kOpenAndBound},
    {kOpening, kClosed, Creation, "`wglCreateContext`", "`OGL_WRONG_DC`", kEarlier, kClosedButBound},
    {kOpening, kClosed, MakingCurrent, "`wglMakeCurrent`", "`OGL_CANTBIND_DC`", kNone, kOpenAndBound},
    {kOpening, kOpenAndBound, ReturnToTheEarlierOne, kReturn, "", kOwn, kOpenAndBound},
    {kOpening, kOpenAndBound, Deletion, "`wglDeleteContext`", "", kOwn, kOpenAndBound},
    {kOpening, kOpenAndBound, Choice, kNoFormat, "`OGL_WRONG_DC`", kEarlier, kClosedButBound},
    {kOpening, kOpenAndBound, Creation, "`wglCreateContext`", "`OGL_WRONG_DC`", kEarlier, kClosedButBound},
    {kOpening, kOpenAndBound, MakingCurrent, "`wglMakeCurrent`", "`OGL_CANTBIND_DC`", kNone, kOpenAndBound},
    {kBinding, kOpenAndBound, Choice, kNoFormat, "`OGL_CANTBIND_DC`", kNone, kOpenAndBound},
    {kBinding, kOpenAndBound, ChoiceBehindAFormat, kItsFormat, "", kOwn, kOpenAndBound},
    {kBinding, kOpenAndBound, SettingAnotherFormat, kAnotherFormat, "`OGL_CANTBIND_DC`", kNone, kOpenAndBound},
    {kBinding, kOpenAndBound, MakingCurrent, "`wglMakeCurrent`", "`OGL_CANTBIND_DC`", kNone, kOpenAndBound},
    {kFreeing, kOpenAndBound, ReturnToTheEarlierOne, kReturn, "", kNone, kOpenUnbound},
    {kClosing, kOpenAndBound, ReturnToTheEarlierOne, kReturn, "", kNone, kClosed},
    {kClosing, kOpenAndBound, Deletion, "`wglDeleteContext`", "", kEarlier, kClosed},
    {kClosing, kBoundTwice, Deletion, "`wglDeleteContext`", "", kOwn, kClosed},
    {kDestroying, kOpenAndBound, ReturnToTheEarlierOne, kReturn, "", kNone, kGone},
    {kDestroying, kOpenAndBound, Deletion, "`wglDeleteContext`", "", kEarlier, kGone},
    {kDestroying, kBoundTwice, Deletion, "`wglDeleteContext`", "", kOwn, kGone},
};

// A row as the document has it.
std::string Documented(const Row& row) {
  std::string methods;
  for (const char* method : row.methods) methods += (methods.empty() ? "`" : ", `") + std::string(method) + "`";
  std::string line = "| " + methods + " |";
  for (const char* cell : {row.before, row.failure, row.error, row.current, row.after}) {
    line += *cell ? " " + std::string(cell) + " |" : " |";
  }
  return line;
}

class ContextFailuresTest : public ModuleTest, public testing::WithParamInterface<Row> {
 protected:
  // The renderer before the operation, with the earlier context remembered, and the operation's window.
  static Variable Prepare(std::string_view before) {
    Device() = {.id = kFirstWindow};
    recorder::Reset();
    recorder::SetCurrent(0x77, 0x88);
    Variable renderer = before == kClosed ? NewRenderer() : OpenRenderer();
    Device().id = kSecondWindow;
    if (before == kBoundTwice) Call(renderer, "BindMDC", NewObject("MDC"));
    return renderer;
  }

  // Calls the method; the module error that it raises, by its name.
  static std::string ErrorOf(Variable& renderer, const std::string& method) {
    const bool takesDevice = method.starts_with("Open") || method.starts_with("Bind");
    takesDevice ? Call(renderer, method, NewObject("MDC")) : Call(renderer, method);
    const devhost::Error* error = devhost::PendingError();
    const std::string name = error ? "`" + std::string(devhost::FindModuleError(error->code)->name) + "`" : "";
    devhost::ClearError();
    return name;
  }

  static std::string Current() {
    HGLRC const context = recorder::Get().currentContext;
    if (!context) return kNone;
    if (context == kEarlierContext) return kEarlier;
    // The renderer made the newest, whose handle is the greatest.
    return context == recorder::Get().contexts.rbegin()->first ? kOwn : gl_trace::Format(context);
  }

  static std::string State(Variable& renderer) {
    if (!renderer.GetAssID()) return kGone;
    const bool isOpen = static_cast<int>(Call(renderer, "IsOpen")) != 0;
    const bool isBound = static_cast<int>(Call(renderer, "IsBind")) != 0;
    return std::string(isOpen ? "open, " : "closed, ") + (isBound ? "bound" : "not bound");
  }
};

TEST_P(ContextFailuresTest, LeavesWhatIsDocumented) {
  const Row& row = GetParam();
  for (const char* method : row.methods) {
    SCOPED_TRACE(method + (" in " + Documented(row)));
    {
      Variable renderer = Prepare(row.before);
      row.fail();
      EXPECT_EQ(ErrorOf(renderer, method), row.error);
      EXPECT_EQ(Current(), row.current);
      EXPECT_EQ(State(renderer), row.after);
      recorder::Get().answers.deletesContexts = true;
    }
    // Only a context that could not be deleted is lost.
    EXPECT_EQ(recorder::Get().balance.contexts.size(), row.fail == Deletion ? 1U : 0U);
    recorder::Get().balance.contexts.clear();
  }
}

INSTANTIATE_TEST_SUITE_P(Table, ContextFailuresTest, testing::ValuesIn(kRows));

TEST(ContextFailuresTableTest, IsTheOneOfTheDocument) {
  std::ifstream document(TESTING_DOCUMENT);
  std::string line;
  while (std::getline(document, line) && line != "## Where WGL or GDI fails") {
  }
  std::vector<std::string> lines;
  while (std::getline(document, line) && !line.starts_with("## ")) {
    if (line.starts_with("| `")) lines.push_back(line);
  }
  std::vector<std::string> rows;
  for (const Row& row : kRows) rows.push_back(Documented(row));
  EXPECT_EQ(lines, rows);
}

}  // namespace
