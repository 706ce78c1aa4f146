#ifndef _WIN32

#include "base/Collation.h"
#include "base/Exceptions.h"

#include <memory>
#include <new>
#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>

namespace jlandxml
{

namespace
{

void ThrowUnlessMade(UErrorCode status)
{
    if (U_FAILURE(status))
    {
        throw std::bad_alloc();
    }
}

/// More than twice of what ICU asks for until the first collator stands.
constexpr std::size_t MEMORY_OF_COLLATOR = std::size_t{2} << 20;

/// Where memory ends while ICU makes its locales and caches, it goes on with references to nothing, or waits for
/// itself. So all of the memory has to be there before it begins.
void EnsureMemory()
{
    ::operator delete(::operator new(MEMORY_OF_COLLATOR));
}

std::unique_ptr<icu::Collator> MakeCollator()
{
    EnsureMemory();
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(icu::Locale("ja"), status));
    ThrowUnlessMade(status);
    return collator;
}

icu::UnicodeString Unicode(const std::wstring& text)
{
    static_assert(sizeof(wchar_t) == sizeof(UChar32));
    icu::UnicodeString unicode = icu::UnicodeString::fromUTF32(reinterpret_cast<const UChar32*>(text.data()),
                                                               static_cast<std::int32_t>(text.size()));
    ThrowUnlessMade(unicode.isBogus() ? U_MEMORY_ALLOCATION_ERROR : U_ZERO_ERROR);
    return unicode;
}

const icu::Collator& JapaneseCollator()
{
    static const std::unique_ptr<icu::Collator> collator = MakeCollator();
    return *collator;
}

} // namespace

int CompareJapanese(const std::wstring& first, const std::wstring& second)
{
    UErrorCode status = U_ZERO_ERROR;
    const UCollationResult result = JapaneseCollator().compare(Unicode(first), Unicode(second), status);
    ThrowUnlessMade(status);
    return static_cast<int>(result);
}

std::string JapaneseSortKey(const std::wstring& text)
{
    const icu::Collator& collator = JapaneseCollator();
    const icu::UnicodeString unicode = Unicode(text);
    const std::int32_t size = collator.getSortKey(unicode, nullptr, 0);
    std::string key(static_cast<std::size_t>(size), '\0');
    // A key is never empty: it ends with a zero.
    if (size <= 0 || collator.getSortKey(unicode, reinterpret_cast<std::uint8_t*>(key.data()), size) != size)
    {
        throw CException(L"文字列の並び順を決められません。");
    }
    return key;
}

} // namespace jlandxml

#endif
