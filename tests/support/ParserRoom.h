#pragma once

#include "support/FailingAllocation.h"
#include "support/XmlText.h"

#include <gtest/gtest.h>
#include <new>
#include <string>

namespace jlandxml
{

/// Has a step change a document of `xml` over and over, each time with a little less room in the page of memory that
/// the parser has, and the page after it refused: whatever the parser adds is once the first that finds no place. Each
/// time the step has done all of its work, or the want of memory is raised. The result is how often it was raised.
template <class Step>
int RefusedPages(const std::wstring& xml, Step step)
{
    constexpr int ATTRIBUTES_OF_A_PAGE = 900;
    XmlText model(xml);
    EXPECT_TRUE(step(model));
    const std::wstring whole = model.Text();
    int raised = 0;
    for (int filled = 0; filled < ATTRIBUTES_OF_A_PAGE; ++filled)
    {
        XmlText text(xml);
        pugi::xml_document& tree = *text.document.appDocument->xmlDocument;
        pugi::xml_node filler = tree.append_child(L"filler");
        for (int index = 0; index < filled; ++index)
        {
            filler.append_attribute(L"");
        }
        try
        {
            const FailingParserAllocation failing(0);
            EXPECT_TRUE(text.document.Change([&] { return step(text); })) << filled;
        }
        catch (const std::bad_alloc&)
        {
            ++raised;
            continue;
        }
        tree.remove_child(filler);
        EXPECT_EQ(text.Text(), whole) << filled;
    }
    return raised;
}

} // namespace jlandxml
