#pragma once

#include "Compound/CompoundObject.h"

/// The base of all objects of a document in structured storage.
class MSCompoundObject : public CompoundObject
{
public:
    using CompoundObject::CompoundObject;
};
