#include "xml/WcXmNode.h"

#include "base/Text.h"
#include "xml/WcXmDocument.h"
#include "xml/WcXmJournal.h"
#include "xml/WcXmSharedTexts.h"

namespace jlandxml
{

namespace
{

bool IsText(const pugi::xml_node& node)
{
    return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

/// True for an element whose first child, a text, the parser keeps as the element's own value. The cursor and the
/// printers take it for the child that it stands for.
bool HoldsText(const pugi::xml_node& node)
{
    return node.type() == pugi::node_element && node.value()[0] != L'\0';
}

/// The node whose value is a node's text: a text itself, or what holds an element's first. Null if there is none.
pugi::xml_node TextNodeOf(const pugi::xml_node& node)
{
    if (IsText(node) || HoldsText(node))
    {
        return node;
    }
    return node.type() == pugi::node_element ? node.find_child(IsText) : pugi::xml_node();
}

/// Makes the text that an element holds a child of its own. Without memory for it, it stays where it is.
void PutTextOut(pugi::xml_node element)
{
    pugi::xml_node text = element.prepend_child(pugi::node_pcdata);
    if (text.set_value(element.value()))
    {
        element.text().set(L"");
    }
    else
    {
        element.remove_child(text);
    }
}

pugi::xml_node FindChildIgnoreCase(const pugi::xml_node& node, std::wstring_view name)
{
    return node.find_child([&](const pugi::xml_node& child) { return EqualsIgnoreCase(child.name(), name); });
}

pugi::xml_attribute FindAttributeNode(const pugi::xml_node& node, std::wstring_view name)
{
    return node.find_attribute([&](const pugi::xml_attribute& one) { return EqualsIgnoreCase(one.name(), name); });
}

WcXmSharedTexts* SharedTextsOf(const WcXmNode& node)
{
    return node.document->appDocument != nullptr ? node.document->appDocument->sharedTexts : nullptr;
}

/// The journal of a node that is there, and so a document with it. Null if none is kept.
WcXmJournal* JournalOf(const WcXmNode& node)
{
    return node.document->appDocument->journal.get();
}

/// The parser destroys a subtree by recursion. Taken off leaf by leaf, a deep one needs no more stack than a flat one.
void RemoveLeafByLeaf(const pugi::xml_node& top, WcXmJournal* journal)
{
    const pugi::xml_node end = top.parent();
    for (pugi::xml_node node = top; node != end;)
    {
        if (const pugi::xml_node child = node.first_child())
        {
            node = child;
            continue;
        }
        if (journal != nullptr)
        {
            journal->Forget(node);
        }
        pugi::xml_node parent = node.parent();
        parent.remove_child(node);
        node = parent;
    }
}

/// Puts `out` on a node of the same document.
void Attach(WcXmNode* out, const WcXmNode& source, const pugi::xml_node& node)
{
    if (out != nullptr)
    {
        out->document = source.document;
        out->appNode.xmlDocument = source.appNode.xmlDocument;
        out->appNode.node = node;
    }
}

} // namespace

WcXmNode::WcXmNode(WcXmDocument& owner) : document(&owner)
{
    if (owner.appDocument != nullptr && owner.appDocument->xmlDocument != nullptr)
    {
        appNode.xmlDocument = owner.appDocument->xmlDocument.get();
        appNode.node = appNode.xmlDocument->document_element();
    }
}

bool WcXmNode::HasName(std::wstring_view name) const
{
    return EqualsText(appNode.node.name(), name);
}

std::wstring_view WcXmNode::NodeName() const
{
    return appNode.node.name();
}

bool WcXmNode::MoveToNextSibling()
{
    const pugi::xml_node next = appNode.node.next_sibling();
    if (!next)
    {
        return false;
    }
    appNode.node = next;
    return true;
}

bool WcXmNode::HasChild() const
{
    return appNode.node.first_child() || HoldsText(appNode.node);
}

bool WcXmNode::MoveToFirstChild()
{
    if (HoldsText(appNode.node))
    {
        PutTextOut(appNode.node);
    }
    const pugi::xml_node child = appNode.node.first_child();
    if (!child)
    {
        return false;
    }
    appNode.node = child;
    return true;
}

bool WcXmNode::SelectFirstChild(std::wstring_view name)
{
    const pugi::xml_node child = FindChildIgnoreCase(appNode.node, name);
    if (!child)
    {
        return false;
    }
    appNode.node = child;
    return true;
}

void WcXmNode::GetAttributes(std::map<std::wstring, std::wstring>& attributes) const
{
    attributes.clear();
    for (const pugi::xml_attribute& attribute : appNode.node.attributes())
    {
        attributes[attribute.name()] = attribute.value();
    }
    if (attributes.empty())
    {
        attributes[appNode.node.name()] = HoldsText(appNode.node) ? L"" : appNode.node.value();
    }
}

std::optional<std::wstring_view> WcXmNode::FindAttribute(std::wstring_view name) const
{
    for (pugi::xml_attribute attribute = appNode.node.last_attribute(); attribute;
         attribute = attribute.previous_attribute())
    {
        if (EqualsText(attribute.name(), name))
        {
            return attribute.value();
        }
    }
    return std::nullopt;
}

std::optional<std::wstring_view> WcXmNode::FindAttributeIgnoreCase(std::wstring_view name) const
{
    const pugi::xml_attribute attribute = FindAttributeNode(appNode.node, name);
    return attribute ? std::optional<std::wstring_view>(attribute.value()) : std::nullopt;
}

std::wstring_view WcXmNode::GetTextContent() const
{
    return TextNodeOf(appNode.node).value();
}

bool WcXmNode::SetAttribute(const wchar_t* name, std::wstring_view value) const
{
    pugi::xml_node node = appNode.node;
    pugi::xml_attribute attribute = FindAttributeNode(node, name);
    if (!attribute)
    {
        if (WcXmSharedTexts* const shared = SharedTextsOf(*this))
        {
            return shared->AppendAttribute(node, name, value);
        }
        attribute = node.append_attribute(name);
    }
    return attribute.set_value(value.data(), value.size());
}

void WcXmNode::SetTextContent(std::wstring_view value) const
{
    if (HoldsText(appNode.node))
    {
        PutTextOut(appNode.node);
    }
    pugi::xml_node text = TextNodeOf(appNode.node);
    if (!text && appNode.node.type() == pugi::node_element)
    {
        text = pugi::xml_node(appNode.node).append_child(pugi::node_pcdata);
    }
    text.set_value(value.data(), value.size());
}

bool WcXmNode::AppendChildElement(const wchar_t* name, WcXmNode* out) const
{
    pugi::xml_node parent = appNode.node;
    if (!parent && appNode.xmlDocument != nullptr)
    {
        parent = *appNode.xmlDocument;
    }
    WcXmSharedTexts* const shared = SharedTextsOf(*this);
    Attach(out, *this, shared != nullptr ? shared->AppendElement(parent, name) : parent.append_child(name));
    return true;
}

bool WcXmNode::InsertElementBefore(std::wstring_view reference, const wchar_t* name, WcXmNode* out) const
{
    WcXmAppNode child = appNode;
    child.node = FindChildIgnoreCase(appNode.node, reference);
    return InsertElementBefore(child, name, out);
}

bool WcXmNode::InsertElementBefore(const WcXmAppNode& child, const wchar_t* name, WcXmNode* out) const
{
    pugi::xml_node parent = appNode.node;
    const pugi::xml_node inserted = parent.insert_child_before(name, child.node);
    Attach(out, *this, inserted ? inserted : parent);
    return static_cast<bool>(inserted);
}

bool WcXmNode::RemoveChild(const WcXmAppNode& child) const
{
    if (!appNode.node)
    {
        return false;
    }
    if (child.node && child.node.parent() == appNode.node)
    {
        RemoveLeafByLeaf(child.node, JournalOf(*this));
    }
    return true;
}

} // namespace jlandxml
