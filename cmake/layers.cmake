# The layers of Contavia. Each folder is one static library with an explicit file list, and it
# sees only its own headers and those of the layers below it: its include path is a view of the
# source tree that holds links to those folders alone, so an include that runs against the order
# ("archive" including "ledger/...") does not compile. Every header is also compiled on its own in
# its layer's view, which catches a wrong-way include in a header that no source of the layer
# includes, and a header that does not stand on its own.

set(CONTAVIA_VIEWS ${CMAKE_BINARY_DIR}/layer_views)

# contavia_view(NAME FOLDERS...): an include folder holding links to the given source folders.
function(contavia_view name)
  set(view ${CONTAVIA_VIEWS}/${name})
  file(REMOVE_RECURSE ${view})
  file(MAKE_DIRECTORY ${view})
  foreach(folder ${ARGN})
    file(CREATE_LINK ${CMAKE_SOURCE_DIR}/${folder} ${view}/${folder} SYMBOLIC)
  endforeach()
endfunction()

# contavia_layer_view(NAME DEPENDS...): makes the view of layer NAME (its own folder and every
# folder its dependencies see) and returns its path in CONTAVIA_VIEW.
function(contavia_layer_view name)
  set(folders ${name})
  foreach(dependency ${ARGN})
    get_property(below GLOBAL PROPERTY CONTAVIA_FOLDERS_${dependency})
    list(APPEND folders ${below})
  endforeach()
  list(REMOVE_DUPLICATES folders)
  set_property(GLOBAL PROPERTY CONTAVIA_FOLDERS_${name} ${folders})
  contavia_view(${name} ${folders})
  set(CONTAVIA_VIEW ${CONTAVIA_VIEWS}/${name} PARENT_SCOPE)
endfunction()

# contavia_layer(NAME SOURCES files... HEADERS files... [DEPENDS layers...] [LIBRARIES libs...])
# Defines the library contavia_NAME from the files of the folder NAME.
function(contavia_layer name)
  cmake_parse_arguments(LAYER "" "" "SOURCES;HEADERS;DEPENDS;LIBRARIES" ${ARGN})
  contavia_layer_view(${name} ${LAYER_DEPENDS})
  set(libraries)
  foreach(dependency ${LAYER_DEPENDS})
    list(APPEND libraries contavia_${dependency})
  endforeach()

  add_library(contavia_${name} STATIC ${LAYER_SOURCES} ${LAYER_HEADERS})
  target_include_directories(contavia_${name} PUBLIC ${CONTAVIA_VIEW})
  target_link_libraries(contavia_${name} PUBLIC ${libraries} ${LAYER_LIBRARIES}
    PRIVATE contavia_warnings)

  # Each header on its own, in this layer's view.
  set(checks)
  foreach(header ${LAYER_HEADERS})
    set(check ${CMAKE_BINARY_DIR}/header_checks/${name}/${header}.cpp)
    file(CONFIGURE OUTPUT ${check} CONTENT "#include \"${name}/${header}\"\n")
    list(APPEND checks ${check})
  endforeach()
  if(checks)
    add_library(contavia_${name}_headers OBJECT ${checks})
    target_link_libraries(contavia_${name}_headers PRIVATE contavia_${name} contavia_warnings)
  endif()
endfunction()
