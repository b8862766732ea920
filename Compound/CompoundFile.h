#pragma once

#include "Compound/CompoundObject.h"

#include <memory>

/// What files of every flavour do alike: they make their streams when they are first asked
/// for. `Object` is the flavour's base of all objects.
template <typename Object, typename InputStream, typename OutputStream>
class CompoundFileOf : public Object, public ICompoundFile
{
public:
    CompoundFileOf(std::uint32_t mode, ICompoundFolder* parent, const wchar_t* name) : Object(mode, parent, name) {}

    IInputStream* GetInputStream() final
    {
        if (m_inputStream == nullptr && Object::SharesMode(CompoundModeRead))
        {
            m_inputStream = NullWithoutMemory([this] { return MakeInputStream(); });
        }
        return m_inputStream.get();
    }

    IOutputStream* GetOutputStream() final
    {
        if (m_outputStream == nullptr && Object::SharesMode(CompoundModeWrite))
        {
            m_outputStream = NullWithoutMemory([this] { return MakeOutputStream(); });
        }
        return m_outputStream.get();
    }

    ICompoundFolder* GetParent() final { return Object::Parent(); }
    const wchar_t* GetName() final { return Object::Name(); }

protected:
    virtual std::unique_ptr<InputStream> MakeInputStream() = 0;
    virtual std::unique_ptr<OutputStream> MakeOutputStream() = 0;

    /// Deletes the streams, the one for reading first. To be called no later than in the
    /// flavour's destructor, because streams use the file to their end.
    void DeleteStreams()
    {
        m_inputStream.reset();
        m_outputStream.reset();
    }

private:
    std::unique_ptr<InputStream> m_inputStream;
    std::unique_ptr<OutputStream> m_outputStream;
};
