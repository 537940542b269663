#include "devhost/classes/register_classes.h"

#include "devhost/classes/tables.h"

namespace devhost {

void RegisterHostClasses() {
  static bool registered = false;
  if (registered) return;
  registered = true;
  for (const MethodEntry* table :
       {kVectorMethods, kStringMethods, kPointMethods, kRectangleMethods, kColorRefMethods, kMatrixMethods,
        kBitmapMethods, kMeshMethods, kMathematicsFunctions, kTextFunctions, kFileFunctions, kProcessFunctions}) {
    RegisterMethods(table);
  }
#ifdef _WIN32
  RegisterMethods(kDeviceMethods);
  RegisterMethods(kDeviceInputMethods);
#endif
}

}  // namespace devhost
