# cpp-httplib as Debian builds it: a shared library whose classes depend on these definitions. Some
# functions of its header call OpenSSL themselves.
find_package(OpenSSL REQUIRED COMPONENTS Crypto)
add_library(orvex_httplib INTERFACE)
target_compile_definitions(orvex_httplib INTERFACE
  CPPHTTPLIB_BROTLI_SUPPORT CPPHTTPLIB_OPENSSL_SUPPORT CPPHTTPLIB_ZLIB_SUPPORT)
target_link_libraries(orvex_httplib INTERFACE cpp-httplib OpenSSL::Crypto)
