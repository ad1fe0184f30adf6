// mrvCore/system/inspection/mrvAbstractAttributeT.cpp
#include "mrvCore/system/inspection/mrvAbstractAttributeT.h"

#include "mrvCore/system/inspection/mrvRTTIConcat.h"

namespace mrv::internal {

const AttributeClass abstractAttributeClass = {
    "mrv::AbstractAttributeT",
    { "890b55dc-bc4a-4e63-8adb-32d645edd196", "45163da5-0153-45a9-a6c7-f3b7c50ab45c",
      "7c1895ea-f09f-4a82-b60d-4d23cc6f13ca", "027d8908-42af-41d2-88ec-578b284e9eac" }
};
const AttributeClass attributeClass = { "mrv::Attribute",
                                        { "2d7c0267-4f4d-428f-ac62-d29fd4af04e5",
                                          "3b91bae6-10e3-421e-bdd9-31bd15f97067",
                                          "22a8891c-2050-4256-bd71-e47f5cc1c087", nullptr } };
const AttributeClass accessorsAttributeClass = { "mrv::AccessorsAttribute",
                                                 { "e4a562e2-368f-4cb8-87af-d6f6cf8c7ebc",
                                                   "f01bb8ae-464c-4938-9e8a-09da2467452b", nullptr,
                                                   "b22c090f-7457-4212-8553-0b88e7a70285" } };
const AttributeClass containerAccessorsAttributeClass = { "mrv::ContainerAccessorsAttribute",
                                                          { "34d83975-ea9f-47f6-811a-0fb0d7025e07", nullptr,
                                                            "e98077c4-25f0-420e-9b49-37bc005e8cd3",
                                                            "27d3c415-3639-4673-bb00-fdf716b0b871" } };

RTTI* findAttributeClassRTTI(const AttributeClass& described, AbstractAttribute::AttributeType::Value form,
                             const RTTI& type, const RTTI& owner)
{
    using AttributeType = AbstractAttribute::AttributeType;
    // The column of the reference is the last but one of the enumeration: there is no plain T&.
    const int column = form == AttributeType::CONST_REFERENCE ? 3 : form;
    const char* seed = described.seeds[column];
    if (seed == nullptr)
        return nullptr;
    const TypeID typeID = Uuid(seed) + type.getTypeID() + owner.getTypeID();
    // The name costs space in the arena, so it is made only where there is a record to compare it with.
    if (RTTI::getRTTI(typeID) == nullptr)
        return nullptr;
    return RTTI::checkBeforeCreate(typeID,
                                   RTTIConcat(described.name, type.getTypeName(), owner.getTypeName()));
}

} // namespace mrv::internal
