#pragma once

// All report item families; hosts include this one header.
#include "reportitembase.h"
#include "drawingitems.h"
