// What the exported arithmetic leaves to the host's general routines: operands of two types, and quotients that it has
// not.
#include "tests/unit/support/value_fixture.h"

namespace {

struct Operation {
  const char* name;  // of the host's routine
  InPlace inPlace;
  ByValue byValue;
};

const Operation kOperations[] = {
    {"Add", Add, operator+ },
     {"Sub", Sub, operator- },
      {"Mul", Mul, operator* },
       {"Div", Div, operator/ },
        {"Rest", Rest, operator% }, {"Or", Or, operator| }, {"And", And, operator& }, {"Xor", Xor, operator^ } };

class GeneralRoutinesTest : public ValueTest, public testing::WithParamInterface<Operation> {
 protected:
  // Expects that the host's routine got these operands as they are.
  static void ExpectGeneral(const Variable& a, const Variable& b) {
    Apply(GetParam().inPlace, a, b);
    ExpectRoutine(a, b);
    Apply(GetParam().byValue, a, b);
    ExpectRoutine(a, b);
  }

 private:
  static void ExpectRoutine(const Variable& a, const Variable& b) {
    EXPECT_EQ(TakeHostCalls(), GetParam().name) << "types " << a.type << " and " << b.type;
    EXPECT_EQ(Host().operands[0], &a);
    EXPECT_EQ(Host().operands[1], &b);
    TakeError();
  }
};

TEST_P(GeneralRoutinesTest, GetTheOperandsOfEveryTwoTypes) {
  const std::vector<Variable> sevens = Sevens();
  for (const Variable& a : sevens) {
    for (const Variable& b : sevens) {
      if (a.type != b.type) ExpectGeneral(a, b);
    }
  }
}

TEST_P(GeneralRoutinesTest, GetTexts) { ExpectGeneral(Text("sun"), Text("flower")); }

INSTANTIATE_TEST_SUITE_P(Each, GeneralRoutinesTest, testing::ValuesIn(kOperations),
                         [](const auto& info) { return std::string(info.param.name); });

using ZeroTest = ValueTest;

// 0 in every type.
std::vector<Variable> Zeros() { return {Byte(0), Variable(0), Variable(0LL), Variable(0.0F), Variable(0.0)}; }

TEST_F(ZeroTest, DivisorGoesToTheHostByValue) {
  const std::vector<Variable> sevens = Sevens();
  const std::vector<Variable> zeros = Zeros();
  for (std::size_t i = 0; i < sevens.size(); ++i) {
    for (const auto& [name, operation] :
         {std::pair("Div", ByValue(operator/)), std::pair("Rest", ByValue(operator%))}) {
      operation(sevens[i], zeros[i]);
      EXPECT_EQ(TakeHostCalls(), name);
      EXPECT_EQ(Host().operands[0], &sevens[i]);
      EXPECT_EQ(Host().operands[1], &zeros[i]);
      TakeError();
    }
  }
}

TEST_F(ZeroTest, DividendDoesNot) {
  const std::vector<Variable> sevens = Sevens();
  const std::vector<Variable> zeros = Zeros();
  for (std::size_t i = 0; i < sevens.size(); ++i) {
    EXPECT_EQ(devhost::TextOf(zeros[i] / sevens[i]), "0");
    if (i < 3) EXPECT_EQ(devhost::TextOf(zeros[i] % sevens[i]), "0");
    EXPECT_EQ(TakeHostCalls(), "");
  }
}

}  // namespace
