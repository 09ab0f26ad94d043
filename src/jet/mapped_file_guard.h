// Protection against database files that are truncated while they are open.
#pragma once

namespace zerbal::jet {

/// Installs a handler for SIGBUS. For `main` to call before it opens a database; no library calls it.
///
/// Databases are mapped into memory, and reading a page that lies after the present end of its file raises
/// SIGBUS. With the handler such a page reads as zeros, and the Database, Recordset or PairReader that has
/// read it throws EngineError instead of giving anything from that file. Without the handler the signal ends
/// the program. A bus error elsewhere goes to the handler that was installed before.
void InstallMappedFileGuard();

}  // namespace zerbal::jet
