# pv_simd: Highway, for what is vectorised.
#
# As a shared library it measures a timer whenever it is loaded, which takes as long as
# half of the toolkit's own libraries. So there the choice among vector forms, all that
# we use of it but headers, is our own; newer versions may ask for more functions than
# these. Linked statically only the choice comes along.

find_package(hwy REQUIRED)
get_target_property(pv_hwy_type hwy::hwy TYPE)
set(PV_OWN_VECTOR_TARGETS OFF)
if(pv_hwy_type STREQUAL "SHARED_LIBRARY"
   AND hwy_VERSION
   AND hwy_VERSION VERSION_LESS 1.1
   AND CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang"
   AND CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
  set(PV_OWN_VECTOR_TARGETS ON)
endif()

add_library(pv_simd INTERFACE)
if(PV_OWN_VECTOR_TARGETS)
  get_target_property(pv_hwy_headers hwy::hwy INTERFACE_INCLUDE_DIRECTORIES)
  target_include_directories(pv_simd SYSTEM INTERFACE ${pv_hwy_headers})
  add_library(pv_vector_targets STATIC ${PROJECT_SOURCE_DIR}/src/math/vector_targets.cpp)
  target_include_directories(pv_vector_targets PRIVATE ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(pv_vector_targets PRIVATE pv_rules)
  target_link_libraries(pv_simd INTERFACE pv_vector_targets)
else()
  target_link_libraries(pv_simd INTERFACE hwy::hwy)
endif()
