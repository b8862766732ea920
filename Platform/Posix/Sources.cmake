set(VANTREL_PLATFORM_SOURCES
    Posix/Automation.cpp
    Posix/ChildProcess.cpp
    Posix/CodePage.cpp
    Posix/CompoundFile/ByteChunks.cpp
    Posix/CompoundFile/ByteSource.cpp
    Posix/CompoundFile/CachedChain.cpp
    Posix/CompoundFile/EntryName.cpp
    Posix/CompoundFile/Image.cpp
    Posix/CompoundFile/ImageLayout.cpp
    Posix/CompoundFile/OpenScope.cpp
    Posix/CompoundFile/Reader.cpp
    Posix/CompoundFile/ReadStorage.cpp
    Posix/CompoundFile/SectorChain.cpp
    Posix/CompoundFile/StorageTree.cpp
    Posix/CompoundFile/WriteStorage.cpp
    Posix/CopyFile.cpp
    Posix/Descriptor.cpp
    Posix/Desktop.cpp
    Posix/ElfFile.cpp
    Posix/Environment.cpp
    Posix/FileError.cpp
    Posix/FileLock.cpp
    Posix/FileOperations.cpp
    Posix/FilePattern.cpp
    Posix/Files.cpp
    Posix/FolderEntries.cpp
    Posix/Folders.cpp
    Posix/Hash.cpp
    Posix/HeldFile.cpp
    Posix/Help.cpp
    Posix/HelpPages.cpp
    Posix/InstanceRecord.cpp
    Posix/InstanceSocket.cpp
    Posix/Library.cpp
    Posix/LibraryFile.cpp
    Posix/LibraryTrial.cpp
    Posix/Locale.cpp
    Posix/Memory.cpp
    Posix/PathStyle.cpp
    Posix/Process.cpp
    Posix/ProcessVariable.cpp
    Posix/ReadFile.cpp
    Posix/Registry.cpp
    Posix/RegistryStore.cpp
    Posix/ReplaceFile.cpp
    Posix/ResourceLibrary.cpp
    Posix/RunningProcesses.cpp
    Posix/ScreenReader.cpp
    Posix/SingleInstance.cpp
    Posix/StandardFile.cpp
    Posix/StructuredStorage.cpp
    Posix/TemporaryFile.cpp
    Posix/WriteAccess.cpp)
set(VANTREL_PLATFORM_LINK ${CMAKE_DL_LIBS} PkgConfig::LibMd)

pkg_check_modules(GLib REQUIRED IMPORTED_TARGET glib-2.0 gobject-2.0)
set(VANTREL_PLATFORM_LOOP_SOURCES Posix/Fonts.cpp Posix/InstanceInbox.cpp Posix/MenuIcons.cpp Posix/ScrollBars.cpp)
set(VANTREL_PLATFORM_LOOP_LINK ${CMAKE_DL_LIBS} PkgConfig::GLib)

# What a language library needs beside its texts. The folder of the languages reads it.
set(VANTREL_TEXT_LIBRARY_SOURCES "${CMAKE_CURRENT_LIST_DIR}/TextLibraryExport.cpp"
    CACHE INTERNAL "Sources of each language library")
