// mrvCore/system/serialization/mrvPersistentAttributes.h
// What the source of a persistent class includes: the attributes and the streams that walk them.
#pragma once

#include "mrvCore/system/inspection/mrvAccessorsAttribute.h"
#include "mrvCore/system/inspection/mrvAttribute.h"
#include "mrvCore/system/inspection/mrvContainerAccessorsAttribute.h"
#include "mrvCore/system/serialization/mrvBinaryStream.h"
#include "mrvCore/system/serialization/mrvXMLStream.h"
