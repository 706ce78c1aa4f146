#ifndef _WIN32

#include "base/Collation.h"

#include <memory>
#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>

namespace jlandxml
{

namespace
{

std::unique_ptr<icu::Collator> MakeCollator()
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(icu::Locale::getJapanese(), status));
    return U_SUCCESS(status) ? std::move(collator) : nullptr;
}

icu::UnicodeString Unicode(const std::wstring& text)
{
    static_assert(sizeof(wchar_t) == sizeof(UChar32));
    return icu::UnicodeString::fromUTF32(reinterpret_cast<const UChar32*>(text.data()),
                                         static_cast<std::int32_t>(text.size()));
}

} // namespace

int CompareJapanese(const std::wstring& first, const std::wstring& second)
{
    static const std::unique_ptr<icu::Collator> collator = MakeCollator();
    if (collator == nullptr)
    {
        return first.compare(second);
    }
    UErrorCode status = U_ZERO_ERROR;
    return static_cast<int>(collator->compare(Unicode(first), Unicode(second), status));
}

} // namespace jlandxml

#endif
