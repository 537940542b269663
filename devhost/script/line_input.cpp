#include "devhost/script/line_input.h"

#include "devhost/script/console.h"

namespace devhost::script {
namespace {

LineInput ReadFileLine(std::FILE* input, std::string& line) {
  line.clear();
  int c = std::fgetc(input);
  if (c == EOF) return LineInput::Ended;
  for (; c != EOF && c != '\n'; c = std::fgetc(input)) line += static_cast<char>(c);
  if (line.ends_with('\r')) line.pop_back();
  return LineInput::Entered;
}

}  // namespace
}  // namespace devhost::script

#if defined(_WIN32)

#include <windows.h>

#include <atomic>

#include "devhost/runtime/wide_text.h"
#include "devhost/runtime/wine.h"

namespace devhost::script {
namespace {

constexpr std::size_t kWidestRow = 76;  // of choices

// While a line is read, the console of it; Ctrl+C ends the program at any other time.
std::atomic<HANDLE> readConsole = nullptr;
HANDLE interruption = nullptr;  // an event

// Windows ends the reading of a line by itself; Wine goes on with it, and is given an Enter.
BOOL WINAPI DropLine(DWORD event) {
  const HANDLE console = readConsole;
  if (event != CTRL_C_EVENT || !console) return FALSE;
  if (!RunsInWine()) Print("\n");
  SetEvent(interruption);
  if (RunsInWine()) {
    INPUT_RECORD enter{};
    enter.EventType = KEY_EVENT;
    enter.Event.KeyEvent = {TRUE, 1, VK_RETURN, 0, {L'\r'}, 0};
    DWORD count = 0;
    WriteConsoleInputW(console, &enter, 1, &count);
  }
  return TRUE;
}

// Lets Ctrl+C drop the line while this lives.
class LineDropper {
 public:
  explicit LineDropper(HANDLE console) {
    if (!interruption) {
      interruption = CreateEventW(nullptr, FALSE, FALSE, nullptr);
      SetConsoleCtrlHandler(DropLine, TRUE);
    }
    readConsole = console;
  }
  ~LineDropper() { readConsole = nullptr; }
  LineDropper(const LineDropper&) = delete;
  LineDropper& operator=(const LineDropper&) = delete;

  // Whether the line that was read until now is dropped. One that Windows ended without any text is, as soon as Ctrl+C
  // is handled.
  bool IsDropped(bool isEmpty) const {
    constexpr DWORD kLongest = 1000;  // milliseconds
    return WaitForSingleObject(interruption, isEmpty ? kLongest : 0) == WAIT_OBJECT_0 || isEmpty;
  }
};

// Goes on with a line that is shown up to there, until Enter or, with that in the line, Tab. False when nothing came.
bool EditLine(HANDLE console, std::wstring& line) {
  std::wstring buffer = line;
  buffer.resize(line.size() + 8192);
  CONSOLE_READCONSOLE_CONTROL control{sizeof control, static_cast<ULONG>(line.size()), 1U << L'\t', 0};
  DWORD count = 0;
  if (!ReadConsoleW(console, buffer.data(), static_cast<DWORD>(buffer.size()), &count, &control)) count = 0;
  line = buffer.substr(0, count);
  return count > 0;
}

std::string RowsOf(const std::vector<std::string>& names) {
  std::string rows;
  std::size_t width = 0;
  for (const std::string& name : names) {
    const bool fits = width + name.size() + 2 <= kWidestRow;
    rows.append(fits && width > 0 ? "  " : "\n").append(name);
    width = fits ? width + name.size() + 2 : name.size();
  }
  return rows + "\n";
}

// Replaces the Tab in the line, which is shown up to there, and shows the rest of it.
void CompleteLine(std::wstring& line, std::size_t tab, const std::string& prompt, Completer& completer) {
  const std::string before = Utf8Text(line.substr(0, tab));
  const std::string behind = Utf8Text(line.substr(tab + 1));
  const Completion completion = completer.CompletionOf(before);
  if (completion.choices.empty()) {
    Print(completion.added + behind);
  } else {
    Print(RowsOf(completion.choices) + prompt + before + behind);
  }
  line = WideText(before + completion.added + behind);
}

LineInput ReadConsoleLine(HANDLE console, const std::string& prompt, Completer& completer, std::string& text) {
  constexpr wchar_t kCtrlZ = 26;
  const LineDropper dropper(console);
  std::wstring line;
  while (!line.ends_with(L'\n')) {
    const bool isEmpty = !EditLine(console, line);
    if (dropper.IsDropped(isEmpty)) return LineInput::Dropped;
    if (const std::size_t tab = line.find(L'\t'); tab != line.npos) CompleteLine(line, tab, prompt, completer);
  }
  if (line.front() == kCtrlZ) return LineInput::Ended;
  text = Utf8Text(std::wstring_view(line).substr(0, line.find_first_of(L"\r\n")));
  return LineInput::Entered;
}

}  // namespace

LineInput ReadLine(std::FILE* input, const std::string& prompt, Completer& completer, std::string& line) {
  Print(prompt);
  std::fflush(stdout);
  const HANDLE console = ConsoleOf(input);
  return console ? ReadConsoleLine(console, prompt, completer, line) : ReadFileLine(input, line);
}

}  // namespace devhost::script

#else

namespace devhost::script {

LineInput ReadLine(std::FILE* input, const std::string& prompt, Completer&, std::string& line) {
  Print(prompt);
  std::fflush(stdout);
  return ReadFileLine(input, line);
}

}  // namespace devhost::script

#endif
