// The library's entry point, version text and errors.
#include <cstring>
#include <string>

#include "binding/errors.h"
#include "classes/gl.h"
#include "module/exports.h"
#include "tests/unit/support/fixture.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID reserved);

namespace {

constexpr char kVersion[] = "TALQ Support DLL v5.0 |TALQ version:5.03.04.a";

HINSTANCE const kInstanceBeforeAttach = TalqSystemGetLibInst();

HINSTANCE Instance(std::uintptr_t value) { return reinterpret_cast<HINSTANCE>(value); }

// What the version writer leaves in a buffer of '#'.
std::string WrittenVersion(unsigned length) {
  std::string buffer(200, '#');
  EXPECT_EQ(WriteVersionText(buffer.data(), length), buffer.data());
  return buffer;
}

using EntryTest = ModuleTest;

TEST_F(EntryTest, InstanceHandleIsNullBeforeAttach) { EXPECT_EQ(kInstanceBeforeAttach, nullptr); }

TEST_F(EntryTest, OnlyProcessAttachStoresTheInstance) {
  EXPECT_EQ(DllMain(Instance(0x1234), DLL_PROCESS_ATTACH, nullptr), TRUE);
  EXPECT_EQ(TalqSystemGetLibInst(), Instance(0x1234));
  for (const int reason : {DLL_PROCESS_DETACH, DLL_THREAD_ATTACH, DLL_THREAD_DETACH, 77}) {
    EXPECT_EQ(DllMain(Instance(0x9999), static_cast<DWORD>(reason), nullptr), TRUE);
    EXPECT_EQ(TalqSystemGetLibInst(), Instance(0x1234)) << reason;
  }
}

TEST_F(EntryTest, VersionTextIsCutWithoutTerminator) {
  EXPECT_EQ(WrittenVersion(10), "TALQ Suppo" + std::string(190, '#'));
  EXPECT_EQ(WrittenVersion(44), std::string(kVersion, 44) + std::string(156, '#'));
}

TEST_F(EntryTest, VersionTextThatFitsExactlyHasNoTerminator) {
  EXPECT_EQ(WrittenVersion(45), kVersion + std::string(155, '#'));
}

TEST_F(EntryTest, VersionTextIsFilledWithZeros) {
  EXPECT_EQ(WrittenVersion(46), kVersion + std::string(1, '\0') + std::string(154, '#'));
  EXPECT_EQ(WrittenVersion(100), kVersion + std::string(55, '\0') + std::string(100, '#'));
}

TEST_F(EntryTest, VersionTextOfLengthZeroWritesNothing) { EXPECT_EQ(WrittenVersion(0), std::string(200, '#')); }

TEST_F(EntryTest, HookDoesNothing) {
  DoNothing(nullptr);
  DoNothing(this);
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(EntryTest, ErrorTableHasSevenRowsAndAZeroRow) {
  const struct {
    const char* name;
    const char* message;
  } rows[] = {
      {"OGL_WRONG_DC", "The Device Context is not Valid"},
      {"OGL_NO_DC", "The Device Context is not Open"},
      {"OGL_CANTBIND_DC", "Can't bind Device Context"},
      {"OGL_NAME_STACK_OVERFLOW", "The OpenGL Name Stack Overflow"},
      {"OGL_NAME_STACK_UNDERFLOW", "The OpenGL Name Stack is Empty"},
      {"OGL_NO_SELECTION_MODE", "OpenGL is not in the Selection Mode"},
      {"OGL_NURBS_ERROR", "OpenGL NURBS error"},
  };
  const ErrorEntry* entry = GetErrorTable();
  int code = 0;
  for (const auto& row : rows) {
    EXPECT_EQ(entry->code, code++);
    EXPECT_STREQ(entry->name, row.name);
    EXPECT_STREQ(entry->message, row.message);
    ++entry;
  }
  EXPECT_EQ(entry->code, 0);
  EXPECT_EQ(entry->name, nullptr);
  EXPECT_EQ(entry->message, nullptr);
}

TEST_F(EntryTest, ErrorRowsArePacked) {
  const auto* bytes = reinterpret_cast<const unsigned char*>(GetErrorTable());
  unsigned short code = 0;
  const char* message = nullptr;
  const char* name = nullptr;
  std::memcpy(&code, bytes + 18, sizeof(code));
  std::memcpy(static_cast<void*>(&message), bytes + 18 + 2, sizeof(message));
  std::memcpy(static_cast<void*>(&name), bytes + 18 + 10, sizeof(name));
  EXPECT_EQ(code, 1);
  EXPECT_STREQ(message, "The Device Context is not Open");
  EXPECT_STREQ(name, "OGL_NO_DC");
}

TEST_F(EntryTest, ModuleErrorsLieAboveTheBase) {
  ModuleError(1, nullptr);
  ASSERT_TRUE(devhost::PendingError());
  EXPECT_EQ(devhost::PendingError()->code, 1001);
  ExpectModuleError(OGL_NO_DC, "The Device Context is not Open");
  char text[] = "why";
  ModuleError(6, text);
  ExpectModuleError(OGL_NURBS_ERROR, "OpenGL NURBS error: why");
}

TEST_F(EntryTest, ModuleErrorUsesTheLargestBase) {
  module->errorBase = 65534;
  ModuleError(2, nullptr);
  ExpectError(65536, "Can't bind Device Context");
}

TEST_F(EntryTest, ModuleErrorWithoutBaseIsDropped) {
  module->errorBase = 65535;
  char text[] = "why";
  ModuleError(0, text);
  ModuleError(1, nullptr);
  EXPECT_EQ(devhost::RaisedCount(), 0);
}

TEST_F(EntryTest, ModuleErrorAsksForTheBaseOfItsOwnInstance) {
  DllMain(Instance(0x5678), DLL_PROCESS_ATTACH, nullptr);  // a library that the host does not know
  ModuleError(0, nullptr);
  EXPECT_EQ(devhost::RaisedCount(), 0);
}

}  // namespace
