#pragma once

#include <Vantrel/Export.h>

/// Follows the program's start and end for the sake of the databases.
class VANTREL_API IDatabaseCollector
{
public:
    virtual ~IDatabaseCollector();
    /// First thing of the program's start.
    virtual void OnCollectorStart() = 0;
    /// Last thing before the program's end.
    virtual void OnCollectorStop() = 0;
};

namespace qox_db
{

class VANTREL_API QOXDataHelper
{
public:
    static QOXDataHelper& getInstance();

    /// The collector, owned by the helper's setter; may be null.
    operator IDatabaseCollector*() const { return m_collector; }

    /// Sets the collector that the program tells of its start and end. Not owned; null
    /// takes it away.
    void SetCollector(IDatabaseCollector* collector) { m_collector = collector; }

private:
    QOXDataHelper() = default;

    IDatabaseCollector* m_collector = nullptr; // owned by whoever set it
};

} // namespace qox_db
