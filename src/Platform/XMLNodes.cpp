#include "Platform/XMLNodes.h"

namespace brackwater::xmlnodes {

namespace {

bool holdsText(const xmlNode* node) { return node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE; }

void appendText(std::string& text, const xmlNode* node) {
    if (holdsText(node))
        text += view(node->content);
    else if (node->type == XML_ENTITY_REF_NODE)
        text.append("&").append(view(node->name)).append(";");
}

} // namespace

std::string_view textOf(xmlNode* first, std::string& storage) {
    if (first == nullptr)
        return {};
    if (first->next == nullptr && holdsText(first))
        return view(first->content);
    storage.clear();
    const xmlNode* const top = first->parent;
    for (xmlNode* node = first; node != nullptr; node = nextBelow(node, top))
        appendText(storage, node);
    return storage;
}

} // namespace brackwater::xmlnodes
