#include "Platform/Posix/CompoundFile/StorageTree.h"

#include <utility>

namespace Platform::Posix::CompoundFile
{

StorageTree::StorageTree()
{
    m_nodes.push_back(std::make_unique<Node>());
    m_contents.entries = 1;
}

bool StorageTree::Find(std::uint32_t storage, const EntryKey& key, std::uint32_t& child) const
{
    const auto& children = m_nodes[storage]->children;
    const auto found = children.find(key);
    if (found == children.end())
    {
        return false;
    }
    child = found->second;
    return true;
}

std::uint32_t StorageTree::Add(std::uint32_t storage, std::u16string name, StorageEntryKind kind)
{
    auto node = std::make_unique<Node>();
    EntryKey key(name);
    node->kind = kind;
    node->name = std::move(name);
    const auto child = static_cast<std::uint32_t>(m_nodes.size());
    m_nodes.push_back(std::move(node));
    m_nodes[storage]->children.emplace(std::move(key), child);
    ++m_contents.entries;
    return child;
}

void StorageTree::Remove(std::uint32_t storage, const EntryKey& key)
{
    auto& children = m_nodes[storage]->children;
    const auto found = children.find(key);
    std::vector<std::uint32_t> doomed = { found->second };
    children.erase(found);
    while (!doomed.empty())
    {
        const std::unique_ptr<Node> node = std::exchange(m_nodes[doomed.back()], nullptr);
        doomed.pop_back();
        m_contents.ResizeStream(node->contents.Size(), 0);
        --m_contents.entries;
        for (const auto& [childKey, child] : node->children)
        {
            doomed.push_back(child);
        }
    }
}

void StorageTree::Append(std::uint32_t stream, std::string_view bytes)
{
    ByteChunks& contents = m_nodes[stream]->contents;
    const std::uint64_t before = contents.Size();
    contents.Append(bytes);
    m_contents.ResizeStream(before, contents.Size());
}

} // namespace Platform::Posix::CompoundFile
