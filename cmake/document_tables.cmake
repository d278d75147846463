# Makes the tables of the documents from the component's own: cmake --build --preset native --target tables
if(NOT WIN32)
  tillora_sources(sources FOLDERS tools/document_tables)
  tillora_program(document_tables SOURCES ${sources} LINK tillora_core)
endif()
