#pragma once

// All report item families; hosts include this one header.
#include "chartitems.h"
#include "databounditems.h"
#include "drawingitems.h"
#include "multicoltableitems.h"
#include "qcinfotableitems.h"
#include "reportitembase.h"
#include "tableitems.h"
