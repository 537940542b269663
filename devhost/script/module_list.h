// What `talq --list` shows.
#pragma once

#include <string>

#include "devhost/runtime/runtime.h"

namespace devhost::script {

// The module's version text, its methods by class, and its errors with their codes and names.
std::string DescribeModule(const Module& module);

// What scripts have without a module: the methods of the host's classes, functions, keywords.
std::string DescribeHost();

}  // namespace devhost::script
