#pragma once
#include "win/XmlAttribute.h"

namespace search {

// The elements of a feed as its tables read them: each one's attributes.
using Attribute = win::XmlAttribute;
using NodeRow = win::XmlAttributes;

}  // namespace search
