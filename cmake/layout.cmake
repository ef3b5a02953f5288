# The folders of src/ (and of tests/, which mirrors it) whose files belong to ruvo_core. Everything else is
# ruvo_ui. The core is compiled without Qt on its include path, so the compiler keeps the wall between the two.
set(RUVO_CORE_FOLDERS
  base
  platform/raster
  platform/imaging
  image
  formats
  effects/filter
  effects/model
  animation/model
  canvas/engine
  canvas/tools
  dialogs/model
  document/model
  tool
  shell/session)

# Collects the sources under ROOT that belong to the core (CORE_OUT) and to the user interface (UI_OUT).
function(ruvo_split_sources ROOT CORE_OUT UI_OUT)
  file(GLOB_RECURSE all CONFIGURE_DEPENDS RELATIVE ${ROOT} ${ROOT}/*.cpp ${ROOT}/*.h)
  set(core "")
  set(ui "")
  foreach(file IN LISTS all)
    set(is_core FALSE)
    foreach(folder IN LISTS RUVO_CORE_FOLDERS)
      if(file MATCHES "^${folder}/")
        set(is_core TRUE)
      endif()
    endforeach()
    if(is_core)
      list(APPEND core ${ROOT}/${file})
    else()
      list(APPEND ui ${ROOT}/${file})
    endif()
  endforeach()
  set(${CORE_OUT} ${core} PARENT_SCOPE)
  set(${UI_OUT} ${ui} PARENT_SCOPE)
endfunction()
