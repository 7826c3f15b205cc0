# What Windows wants inside a program: icons, version, manifest.

# pv_windows_program(TARGET DESCRIPTION [DOCUMENTS icon...])
# Nothing elsewhere. Icons of documents follow the program's own and stand below
# art/rendered/app.
function(pv_windows_program target description)
  if(NOT WIN32)
    return()
  endif()
  cmake_parse_arguments(ARG "" "" "DOCUMENTS" ${ARGN})
  set(PV_NAME ${target})
  set(PV_DESCRIPTION "${description}")
  set(PV_DOCUMENT_ICONS "")
  set(number 1)
  foreach(icon ${ARG_DOCUMENTS})
    math(EXPR number "${number} + 1")
    string(APPEND PV_DOCUMENT_ICONS
           "${number} ICON \"${PROJECT_SOURCE_DIR}/art/rendered/app/${icon}.ico\"\n")
    list(APPEND icons ${PROJECT_SOURCE_DIR}/art/rendered/app/${icon}.ico)
  endforeach()

  set(manifest ${CMAKE_CURRENT_BINARY_DIR}/${target}.manifest)
  configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/program.manifest.in ${manifest} @ONLY)
  set(PV_MANIFEST_RESOURCE "")
  if(MSVC)
    # Its linker makes a manifest of its own, which CMake merges with this one.
    target_sources(${target} PRIVATE ${manifest})
  else()
    set(PV_MANIFEST_RESOURCE "1 24 \"${manifest}\"")
  endif()
  set(resource ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
  configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/program.rc.in ${resource} @ONLY)
  target_sources(${target} PRIVATE ${resource})
  set_source_files_properties(
    ${resource} PROPERTIES OBJECT_DEPENDS
                           "${manifest};${PROJECT_SOURCE_DIR}/art/rendered/app/particle-vortex.ico;${icons}")
endfunction()
