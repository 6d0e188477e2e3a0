#include "wire/field_base.h"

FieldBase::~FieldBase() = default;
