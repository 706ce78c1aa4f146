#include "dialog/DialogFields.h"

#include <algorithm>

namespace jlandxml
{

const DialogField* FindField(int control)
{
    for (const FieldTable& fields : FIELD_TABLES)
    {
        const auto field =
            std::find_if(fields.begin(), fields.end(), [&](const DialogField& one) { return one.control == control; });
        if (field != fields.end())
        {
            return &*field;
        }
    }
    return nullptr;
}

} // namespace jlandxml
