#ifndef _WIN32

#include "base/Collation.h"
#include "base/Exceptions.h"

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

const icu::Collator* JapaneseCollator()
{
    static const std::unique_ptr<icu::Collator> collator = MakeCollator();
    return collator.get();
}

} // namespace

int CompareJapanese(const std::wstring& first, const std::wstring& second)
{
    const icu::Collator* const collator = JapaneseCollator();
    if (collator == nullptr)
    {
        return first.compare(second);
    }
    UErrorCode status = U_ZERO_ERROR;
    return static_cast<int>(collator->compare(Unicode(first), Unicode(second), status));
}

std::string JapaneseSortKey(const std::wstring& text)
{
    const icu::Collator* const collator = JapaneseCollator();
    const icu::UnicodeString unicode = Unicode(text);
    const std::int32_t size = collator != nullptr ? collator->getSortKey(unicode, nullptr, 0) : 0;
    std::string key(static_cast<std::size_t>(size), '\0');
    // A key is never empty: it ends with a zero.
    if (size <= 0 || collator->getSortKey(unicode, reinterpret_cast<std::uint8_t*>(key.data()), size) != size)
    {
        throw CException(L"文字列の並び順を決められません。");
    }
    return key;
}

} // namespace jlandxml

#endif
