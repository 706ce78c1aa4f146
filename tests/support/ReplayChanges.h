#pragma once

#include "xml/WcXmDocument.h"
#include "xml/WcXmJournal.h"

#include <pugixml.hpp>

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace jlandxml
{

/// Applies changes, in the order in which a journal gives them, to the tree that they began with.
class ReplayChanges
{
  public:
    ReplayChanges(pugi::xml_document& document, const std::vector<WcXmChange>& changes) : document_(document)
    {
        std::vector<pugi::xml_node> nodes;
        for (const WcXmChange& change : changes)
        {
            nodes.push_back(change.path.empty() ? pugi::xml_node() : Find(change.path));
        }
        // Outside of the elements that are counted: behind the document element.
        held_ = document.append_child(L"held");
        for (std::size_t index = 0; index < changes.size(); ++index)
        {
            TakeOut(changes[index], nodes[index]);
        }
        for (std::size_t index = 0; index < changes.size(); ++index)
        {
            SetValue(changes[index], nodes[index]);
        }
        for (std::size_t index = 0; index < changes.size(); ++index)
        {
            Place(changes[index], nodes[index]);
        }
        document.remove_child(held_);
    }

  private:
    using Kind = WcXmChange::Kind;

    /// The element at a position among the children of a node; null if there are fewer.
    pugi::xml_node Child(const pugi::xml_node& parent, std::size_t position) const
    {
        for (pugi::xml_node child = parent.first_child(); child; child = child.next_sibling())
        {
            if (child.type() == pugi::node_element && child != held_ && --position == 0)
            {
                return child;
            }
        }
        return {};
    }

    /// Takes the last step off a path, and gives its position.
    static std::size_t TakeLastStep(std::wstring& path)
    {
        const std::size_t step = path.rfind(L"/*[");
        const std::size_t position = std::stoul(path.substr(step + 3));
        path.erase(step);
        return position;
    }

    pugi::xml_node Find(std::wstring path) const
    {
        std::vector<std::size_t> positions;
        while (!path.empty())
        {
            positions.insert(positions.begin(), TakeLastStep(path));
        }
        pugi::xml_node node = document_;
        for (const std::size_t position : positions)
        {
            node = Child(node, position);
        }
        if (!node)
        {
            throw std::out_of_range("no such element");
        }
        return node;
    }

    void TakeOut(const WcXmChange& change, pugi::xml_node node)
    {
        if (change.kind == Kind::ElementRemoved)
        {
            node.parent().remove_child(node);
        }
        else if (change.kind == Kind::ElementMoved)
        {
            held_.append_move(node);
        }
    }

    static void SetValue(const WcXmChange& change, pugi::xml_node node)
    {
        if (change.kind == Kind::AttributeAdded)
        {
            node.append_attribute(change.name.c_str()).set_value(change.newText.c_str());
        }
        else if (change.kind == Kind::AttributeChanged)
        {
            Require(node.attribute(change.name.c_str()).value() == change.oldText);
            node.attribute(change.name.c_str()).set_value(change.newText.c_str());
        }
        else if (change.kind == Kind::TextChanged)
        {
            Require(node.text().get() == change.oldText);
            node.text().set(change.newText.c_str());
        }
    }

    void Place(const WcXmChange& change, pugi::xml_node node)
    {
        if (change.kind != Kind::ElementAdded && change.kind != Kind::ElementMoved)
        {
            return;
        }
        std::wstring path = change.newPath;
        const std::size_t position = TakeLastStep(path);
        pugi::xml_node parent = path.empty() ? pugi::xml_node(document_) : Find(path);
        if (change.kind == Kind::ElementAdded)
        {
            held_.append_buffer(change.newText.data(), change.newText.size() * sizeof(wchar_t), pugi::parse_default,
                                pugi::encoding_wchar);
            node = held_.last_child();
        }
        const pugi::xml_node behind = Child(parent, position);
        Require(static_cast<bool>(behind ? parent.insert_move_before(node, behind) : parent.append_move(node)));
    }

    static void Require(bool condition)
    {
        if (!condition)
        {
            throw std::logic_error("the change doesn't fit the tree");
        }
    }

    pugi::xml_document& document_;
    pugi::xml_node held_;
};

} // namespace jlandxml
