// SPDX-License-Identifier: MIT
// Reads the icon from the executable's resources.
#include "qt/window/look/product_icon.h"

#include <QtGlobal>

// The macro declares a function, which must be outside of namespaces.
static void InitResources() { Q_INIT_RESOURCE(window); }

namespace requite {

QIcon ProductIcon() {
  InitResources();
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128, 256}) icon.addFile(QString(":/icons/%1.png").arg(size));
  return icon;
}

}  // namespace requite
