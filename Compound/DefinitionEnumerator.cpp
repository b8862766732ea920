#include "Compound/DefinitionEnumerator.h"

GDCompoundDefinition* DefinitionEnumerator::Next()
{
    return m_position < m_definitions.size() ? &m_definitions[m_position++] : nullptr;
}
