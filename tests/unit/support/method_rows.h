// The whole script API: what the method table holds when it is complete.
#pragma once

// One row.
struct MethodRow {
  int handler;  // rows of one number share a handler
  const char* signature;
};

inline constexpr int kMethodRowCount = 165;
inline constexpr int kHandlerCount = 140;

// In the order in which the host receives them.
extern const MethodRow kMethodRows[kMethodRowCount];
