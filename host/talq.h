// The Talq host's interface, as far as this module uses it.
//
// Talq.dll is closed: the module imports the classes and functions below by their decorated names, so this header and
// talq.def are the one place that fixes what it is compiled against. Where a choice had to be made, the declaration
// says "To be confirmed against the real host"; docs/real-host.md tells how.
//
// Rules that hold throughout: no member function is const, texts are char* (never written through), everything runs on
// the script's thread, and raising an error returns to the caller.
#pragma once

#include <cstddef>

#if defined(_WIN32) && !defined(TALQ_HOST_BUILD)
#define TALQ_API __declspec(dllimport)
#else
#define TALQ_API
#endif

struct HINSTANCE__;

class Processor;
class VarRegister;
class Variable;

// Value types: the tag says which member of a Variable's slot holds the value. The numeric ones make up kNumericTypes,
// the integer ones kIntegerTypes.
enum TVARTYPE : int {
  TVAR_INT64 = 2,
  TVAR_BYTE = 4,
  TVAR_INT32 = 8,
  TVAR_FLOAT = 16,
  TVAR_DOUBLE = 32,
  TVAR_FUNCTION = 64,
  TVAR_BYTES = 512,
  TVAR_ARRAY = 1024,
};
inline constexpr int kNumericTypes = TVAR_INT64 | TVAR_BYTE | TVAR_INT32 | TVAR_FLOAT | TVAR_DOUBLE;
inline constexpr int kIntegerTypes = TVAR_INT64 | TVAR_BYTE | TVAR_INT32;

// A byte buffer behind a Variable; reached only through Variable::GetString.
// To be confirmed against the real host: both members and their order.
class String {
 public:
  unsigned char* bytes;
  int length;
};

// One script value: a type tag, then with no padding an 8-byte slot in the tag's representation.
// Assignment between values does not exist; copies are made by the copy constructor alone.
// To be confirmed against the real host: that the record ends with the slot (12 bytes).
#pragma pack(push, 4)
class TALQ_API Variable {
 public:
  union Slot {
    long long int64;
    unsigned char byte;
    int int32;
    float float32;
    double float64;
    void* pointer;
  };

  // An empty value; a copy; a number of the argument's type.
  Variable();
  Variable(const Variable& other);
  explicit Variable(unsigned char value);
  explicit Variable(int value);
  explicit Variable(long long value);
  explicit Variable(float value);
  explicit Variable(double value);
  // With TVAR_FUNCTION: compiles the source text into a callable script function.
  Variable(TVARTYPE type, char* source);
  ~Variable();

  // Empties the value.
  void Clear();
  // Makes the value an array (TVAR_ARRAY) or a byte string (TVAR_BYTES) of n elements.
  void Init(TVARTYPE type, int n);

  TVARTYPE GetType();
  // Nonzero for a value of one of kNumericTypes.
  int IsNumber();
  // Nonzero for a reference to another value, which GetPointer then yields.
  int IsPointer();
  Variable* GetPointer();
  // Number of elements of an array.
  int GetDim();
  // The bytes of a byte string, or null.
  String* GetString();
  // The native object joined to a script object, or null.
  void* GetAssID();

  // An element, counted from 0; a field of an object, by its name or by the id that Token::GetNameID gives.
  Variable& operator[](int index);
  Variable& operator()(char* field);
  Variable& operator()(unsigned short nameId);

  // The number; the bytes of a byte string. A failed conversion sets the running script's error status.
  operator int();
  operator unsigned long();
  operator float();
  operator double();
  operator unsigned char*();

  // Replaces what the value holds.
  Variable& operator=(const Variable&) = delete;
  Variable& operator=(int value);
  Variable& operator=(unsigned long value);
  Variable& operator=(long long value);
  Variable& operator=(float value);
  Variable& operator=(double value);
  // Stores a copy of the text.
  Variable& operator=(char* text);

  TVARTYPE type;
  Slot slot;
};
#pragma pack(pop)
static_assert(sizeof(Variable) == 12 && offsetof(Variable, type) == 0 && offsetof(Variable, slot) == 4);

// A register: one argument of a call, or its result. Arguments lie one behind the other, 28 bytes each.
#pragma pack(push, 4)
class TALQ_API VarRegister {
 public:
  VarRegister();
  VarRegister(const VarRegister&) = delete;
  ~VarRegister();

  // The argument as a number, or as the bytes of a byte string.
  operator float();
  operator int();
  operator long long();
  operator unsigned char*();
  // The value in the register itself.
  operator Variable&();
  operator Variable*();
  Variable& GetVar();
  // A named field of the object in the register.
  Variable& operator()(char* field);
  // The argument's truth as the host's own number for it: nonzero for true.
  int IsTrue();
  // The native object joined to the script object in the register, or null.
  void* GetAssID();

  // These make the call's result.
  void SetBool(int value);
  VarRegister& operator=(const VarRegister&) = delete;
  VarRegister& operator=(float value);
  VarRegister& operator=(int value);

 private:
  alignas(4) unsigned char hostState[28];
};
#pragma pack(pop)
static_assert(sizeof(VarRegister) == 28);

// Base of every native object that is joined to a script object. Virtual slots: PlaceHolder, then the deleting
// destructor. There are no copies: a copy of a derived object starts with an association of its own.
// To be confirmed against the real host: the size of its state (two words behind the virtual table pointer).
class TALQ_API TalqAss {
 protected:
  virtual void PlaceHolder();

 public:
  TalqAss();
  TalqAss(const TalqAss&) = delete;
  TalqAss& operator=(const TalqAss&) = delete;
  virtual ~TalqAss();
  // From now on GetAssID on the script object yields this native object; the context is the call's Processor.
  void Join(Variable* object, void* context);
  // Undoes Join.
  void BreakJoint();

 private:
  void* hostState[2];
};
static_assert(sizeof(TalqAss) == 24);

// A triangle mesh, as it is joined to script objects of the host.
// To be confirmed against the real host: the members and their order.
struct TriangleMesh {
  float* vertices;  // 9 floats a triangle: x, y, z of each corner
  int triangleCount;
  float* normals;  // likewise, one normal a corner
};
static_assert(sizeof(TriangleMesh) == 24);

class TALQ_API Owner {
 public:
  // Nonzero while an error is pending in the running script.
  int GetErrorStatus();
};

// The interpreter that runs the current script.
class TALQ_API Processor : public Owner {
 public:
  // Creates a script object of the named class in target, running its constructor with the arguments.
  void MakeInstance(Variable& target, char* className, VarRegister* args, int count);
  // Calls a script method of the object, or a script function, with `count` arguments and fills the result.
  int RunMethod(VarRegister& result, char* method, VarRegister* args, int count, Variable* object);
  int RunFunction(VarRegister& result, Variable& function, VarRegister* args, int count);
};

class TALQ_API Token {
 public:
  // The id of a field name, for Variable::operator()(unsigned short).
  static unsigned short GetNameID(char* name);
};

// The module's connection to the host.
class TALQ_API TVConnect {
 public:
  // The current interpreter.
  Processor* GetOwner();
};

// May be null.
TALQ_API TVConnect* GetConnector();

// Raises an error in the running script and returns. The text, which may be null, is added to the code's message.
TALQ_API void TalqError(int code, char* text);
TALQ_API void TalqError(int code);
// The base of a module's own error codes; 65535: it has none.
TALQ_API unsigned short GetErrorOffset(HINSTANCE__* module);

// The host's allocator. To be confirmed against the real host: the meaning of x, y and z (they are passed through).
extern "C" TALQ_API void* HMALLOC(std::size_t size, std::size_t x, std::size_t y, std::size_t z);

// The host's general arithmetic, for operands of any types: result = a op b. The names are the host's.
// NOLINTBEGIN(bugprone-reserved-identifier)
TALQ_API void __AddNumb(Variable& result, const Variable& a, const Variable& b);
TALQ_API void __SubNumb(Variable& result, const Variable& a, const Variable& b);
TALQ_API void __MulNumb(Variable& result, const Variable& a, const Variable& b);
TALQ_API void __DivNumb(Variable& result, const Variable& a, const Variable& b);
TALQ_API void __RestNumb(Variable& result, const Variable& a, const Variable& b);
TALQ_API void _OrNumb(Variable& result, const Variable& a, const Variable& b);
TALQ_API void _AndNumb(Variable& result, const Variable& a, const Variable& b);
TALQ_API void _XorNumb(Variable& result, const Variable& a, const Variable& b);
// NOLINTEND(bugprone-reserved-identifier)

// What the host calls for a script method: args[0] to args[argc - 2] are the script's arguments, args[argc - 1] is the
// script object. A handler without a result leaves the register alone.
using ScriptHandler = void (*)(VarRegister& result, VarRegister* args, int argc, Processor* processor);

// A row of a module's method table, which ends with a row of two nulls.
struct MethodEntry {
  ScriptHandler handler;
  const char* signature;
};
static_assert(sizeof(MethodEntry) == 16);

// A row of a module's error table, which ends with a row of zeros.
#pragma pack(push, 1)
struct ErrorEntry {
  unsigned short code;
  const char* message;
  const char* name;
};
#pragma pack(pop)
static_assert(sizeof(ErrorEntry) == 18 && offsetof(ErrorEntry, message) == 2 && offsetof(ErrorEntry, name) == 10);
