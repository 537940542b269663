#include "devhost/gl_trace/rows.h"

#include "devhost/gl_trace/traced.h"

namespace gl_trace {
namespace {

#define SPECIAL(result, function, ...) {#function, Traced<#function, decltype(function), result(__VA_ARGS__)>::Replace},
#define PLAIN(function, ...) SPECIAL(void, function __VA_OPT__(, ) __VA_ARGS__)

constexpr Row kTable[] = {
#include "devhost/gl_trace/functions.def"
};

}  // namespace

const std::span<const Row> kRows = kTable;

}  // namespace gl_trace
