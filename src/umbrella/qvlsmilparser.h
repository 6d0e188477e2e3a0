/// @file
/// The header for applications: includes everything that the library publishes.
#pragma once

#include "qvlsmilparser/qvlsmilparser.h"
