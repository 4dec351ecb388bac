// The benchmark support is header-only; this file gives its library a source.
#include "benchutil.h"
