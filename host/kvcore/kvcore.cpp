// kvcore's translation units; the library grows with the host classes the module uses.
#include "reporttype.h"
