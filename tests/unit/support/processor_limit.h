// Lets the module take the processor for one that can do less, so that each way of its pixel loops is taken. The linker
// leads the calls here (cmake/native-targets.cmake).
#pragma once

struct ProcessorLimit {
  bool allowsSsse3 = true;
  bool allowsAvx2 = true;
  bool allowsAvx512 = true;
};

ProcessorLimit& Processors();
