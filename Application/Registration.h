#pragma once

/// What an ordinary start writes into the system's registration and an unregistering start
/// takes out: the document class, the type library and the rule file type.
namespace Registration
{

/// Registers the file type, so that a rule file opens in the program.
void RegisterFileTypes();

/// Registers the document class and the type library. Written again at every start, so that
/// the registration follows a program that was moved.
void RegisterServer();

/// Takes the file type, the document class and the type library out.
void UnregisterAll();

} // namespace Registration
