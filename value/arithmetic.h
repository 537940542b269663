// Arithmetic on host values, exported for the host: a fast path for two operands of one numeric type, computed on the
// host's record directly, and the host's general routine for everything else. The oddities named here are required.
#pragma once

#include <cstddef>

#include "host/talq.h"

// The type that an operation on a and b works in, as an unsigned short; 65535 when either is not numeric.
unsigned short TopType(TVARTYPE a, TVARTYPE b);

// result = a op b. Integers wrap.
void Add(Variable& result, const Variable& a, const Variable& b);
void Sub(Variable& result, const Variable& a, const Variable& b);
void Mul(Variable& result, const Variable& a, const Variable& b);
// A zero divisor raises error 10 and leaves what the host's Clear leaves, as the operands' type.
void Div(Variable& result, const Variable& a, const Variable& b);
// Of integers alone; the remainder has the dividend's sign.
void Rest(Variable& result, const Variable& a, const Variable& b);
// Two bytes give a 32-bit integer: the first operand combined with itself.
void Or(Variable& result, const Variable& a, const Variable& b);
void And(Variable& result, const Variable& a, const Variable& b);
void Xor(Variable& result, const Variable& a, const Variable& b);

// a op b as a new value. These raise nothing themselves: zero divisors go to the host.
Variable operator+(const Variable& a, const Variable& b);
Variable operator-(const Variable& a, const Variable& b);
Variable operator*(const Variable& a, const Variable& b);
// Of 32-bit and 64-bit integers the product.
Variable operator/(const Variable& a, const Variable& b);
Variable operator%(const Variable& a, const Variable& b);
Variable operator|(const Variable& a, const Variable& b);
Variable operator&(const Variable& a, const Variable& b);
Variable operator^(const Variable& a, const Variable& b);

// The host's allocator, with the memory zeroed; null when it gives none.
extern "C" void* HMALLOCZ(std::size_t size, std::size_t x, std::size_t y, std::size_t z);

// The current interpreter, or null.
Processor* GetOwner();
