# Checks the host's vendor prefix and interface folder, and writes the headers with identity and
# version.
#
# The identity is a header, not a compile definition: Qt's moc, which writes the plug-in's metadata,
# runs again when a header has changed, but not when a definition has.
set(host_headers BackendVersions.h IOManager.h MessageReceiver.h ModuleInterface.h)

if(NOT HOST_VENDOR_PREFIX MATCHES "^[A-Za-z][A-Za-z0-9_-]*(\\.[A-Za-z0-9_-]+)+$")
    message(FATAL_ERROR
        "HOST_VENDOR_PREFIX is \"${HOST_VENDOR_PREFIX}\", but a reverse-domain name such as "
        "\"org.example\" is needed, byte for byte the one that the host uses.")
endif()
foreach(header IN LISTS host_headers)
    if(NOT EXISTS "${HOST_INTERFACE_DIR}/${header}")
        message(FATAL_ERROR
            "HOST_INTERFACE_DIR is \"${HOST_INTERFACE_DIR}\", but that folder has no ${header}. "
            "It has to hold the host's interface headers: ${host_headers}.")
    endif()
endforeach()

set(generated_headers "${CMAKE_BINARY_DIR}/generated")
configure_file(cmake/HostIdentity.h.in "${generated_headers}/HostIdentity.h" @ONLY)
configure_file(cmake/projectversion.h.in "${generated_headers}/projectversion.h" @ONLY)

# This project cannot correct warnings in another vendor's headers.
set(host_headers_system "")
cmake_path(COMPARE "${HOST_INTERFACE_DIR}" EQUAL "${CMAKE_SOURCE_DIR}/hostinterface" own_headers)
if(NOT own_headers)
    set(host_headers_system SYSTEM)
endif()
