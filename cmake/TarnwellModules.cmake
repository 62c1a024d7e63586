# tarnwell_module(<folder> QT <Qt targets>...): an object library `tarnwell_<folder>` of
# src/<folder>/*.cpp, compiled against the named Qt modules only, with the public header
# include/tarnwell/<name>.h of every src/<folder>/<name>.cpp added so that moc sees it.
#
# Objects are compiled with hidden visibility: only what a public header marks TARNWELL_EXPORT
# leaves the shared library. The module joins TARNWELL_MODULE_TARGETS; the caller groups modules
# into the layer libraries.
set(TARNWELL_MODULE_TARGETS "")

function(tarnwell_module folder)
  cmake_parse_arguments(arg "" "" "QT" ${ARGN})
  set(dir ${PROJECT_SOURCE_DIR}/src/${folder})
  file(GLOB sources CONFIGURE_DEPENDS ${dir}/*.cpp ${dir}/*.h)
  if(NOT sources)
    return() # a folder still to be written
  endif()
  set(public_headers "")
  foreach(src IN LISTS sources)
    get_filename_component(base ${src} NAME_WE)
    if(EXISTS ${PROJECT_SOURCE_DIR}/include/tarnwell/${base}.h)
      list(APPEND public_headers ${PROJECT_SOURCE_DIR}/include/tarnwell/${base}.h)
    endif()
  endforeach()
  set(target tarnwell_${folder})
  add_library(${target} OBJECT ${sources} ${public_headers})
  set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${target} PRIVATE ${arg_QT})
  target_compile_definitions(${target} PRIVATE TARNWELL_BUILDING)
  target_compile_options(${target} PRIVATE ${TARNWELL_WARNINGS})
  set(TARNWELL_MODULE_TARGETS ${TARNWELL_MODULE_TARGETS} ${target} PARENT_SCOPE)
endfunction()

# tarnwell_layer(<name> LINK <targets>... MODULES <modules>...): a static library of the modules'
# objects, for the tests, fuzz targets and benchmarks that link a layer without the shared library.
function(tarnwell_layer name)
  cmake_parse_arguments(arg "" "" "LINK;MODULES" ${ARGN})
  add_library(${name} STATIC)
  foreach(module IN LISTS arg_MODULES)
    if(TARGET tarnwell_${module})
      target_sources(${name} PRIVATE $<TARGET_OBJECTS:tarnwell_${module}>)
    endif()
  endforeach()
  set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  target_compile_features(${name} PUBLIC cxx_std_20)
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${arg_LINK})
endfunction()
