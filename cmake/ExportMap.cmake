# egfsvg_export_map(LIST MAP): writes the linker version script MAP that exports the names of LIST
# (lines EGFSVG_EXPORT(name)) and hides every other symbol.
function(egfsvg_export_map list map)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list})
  file(STRINGS ${list} rows REGEX "^EGFSVG_EXPORT\\(")
  set(names "")
  foreach(row IN LISTS rows)
    string(REGEX REPLACE "^EGFSVG_EXPORT\\(([A-Za-z0-9_]+)\\).*" "\\1" name "${row}")
    string(APPEND names "    ${name};\n")
  endforeach()
  file(CONFIGURE OUTPUT ${map} CONTENT "{\n  global:\n@names@  local:\n    *;\n};\n" @ONLY)
endfunction()
