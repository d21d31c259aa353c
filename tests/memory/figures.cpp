#include "memory/figures.h"

namespace host {

Figures& figures() {
  static Figures instance;
  return instance;
}

}  // namespace host
