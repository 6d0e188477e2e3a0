/// @file
/// What an application includes: everything that the library publishes.
#pragma once

#include "qvlsmilparser/qvlsmilparser.h"
