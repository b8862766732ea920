#pragma once

/// Notes the calls of a module for tests. Compiled into each of them.
void RecordCall(const char* exportName);
