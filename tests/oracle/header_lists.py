"""The headers that declarations.py compares: PATH or PATH|INCLUDED, optionally followed by :OPTION,OPTION for clang."""

import os

C_HEADERS = """zlib.h zconf.h zstd.h zdict.h zstd_errors.h xxhash.h lz4.h lz4hc.h lz4frame.h png.h pngconf.h sqlite3.h
sqlite3ext.h expat.h expat_external.h curl/curl.h curl/easy.h|curl/curl.h curl/multi.h|curl/curl.h
curl/header.h|curl/curl.h curl/urlapi.h|curl/curl.h curl/options.h|curl/curl.h
libxml/tree.h:-I/usr/include/libxml2 libxml/parser.h:-I/usr/include/libxml2 libxml/xpath.h:-I/usr/include/libxml2
libxml/xmlreader.h:-I/usr/include/libxml2 libxml/encoding.h:-I/usr/include/libxml2 libxml/xmlIO.h:-I/usr/include/libxml2
libxml/globals.h:-I/usr/include/libxml2 libxml/relaxng.h:-I/usr/include/libxml2 libxml/HTMLparser.h:-I/usr/include/libxml2
libxml/SAX2.h:-I/usr/include/libxml2 libxml/xmlschemas.h:-I/usr/include/libxml2 libxml/valid.h|libxml/parser.h:-I/usr/include/libxml2
lua5.4/lua.h lua5.4/lauxlib.h lua5.4/luaconf.h lua5.4/lualib.h jansson.h event2/event.h event2/buffer.h
event2/bufferevent.h event2/http.h event2/util.h event2/dns.h event2/rpc.h event2/event_struct.h
SDL2/SDL_video.h SDL2/SDL_events.h SDL2/SDL_audio.h SDL2/SDL_render.h SDL2/SDL_stdinc.h SDL2/SDL_rwops.h
SDL2/SDL_surface.h SDL2/SDL_joystick.h SDL2/SDL_gamecontroller.h SDL2/SDL_pixels.h SDL2/SDL_thread.h SDL2/SDL_syswm.h
stdio.h stdlib.h string.h math.h unistd.h signal.h pthread.h time.h wchar.h sys/socket.h sys/stat.h
netinet/in.h netdb.h dirent.h fcntl.h locale.h regex.h setjmp.h semaphore.h spawn.h search.h obstack.h
argp.h glob.h fts.h ftw.h printf.h poll.h elf.h link.h dlfcn.h errno.h ctype.h grp.h pwd.h inttypes.h""".split()
GLIB_OPTIONS = "-I/usr/include/glib-2.0,-I/usr/lib/x86_64-linux-gnu/glib-2.0/include"

QT = "/usr/include/x86_64-linux-gnu/qt6"
PROTOBUF = "message arena repeated_field map text_format descriptor io/coded_stream io/zero_copy_stream"
CXX_GROUPS = {  # options: headers
    "-fPIC,-I%s,-I%s/QtCore,-I%s/QtXml" % (QT, QT, QT): ["%s/QtCore/%s.h" % (QT, name) for name in (
        "qstring qlist qobject qmap qhash qfile qurl qvariant qjsonvalue qprocess qregularexpression qtextstream "
        "qdatetime qabstractitemmodel qmetaobject qstringview qbytearray qflags qthread qpoint").split()] +
    ["%s/QtXml/qdom.h" % QT],
    "-DFMT_HEADER_ONLY": "fmt/core.h fmt/format.h fmt/chrono.h fmt/os.h fmt/printf.h fmt/ranges.h fmt/color.h".split(),
    "": """re2/re2.h re2/set.h re2/stringpiece.h re2/filtered_re2.h
        rapidjson/document.h rapidjson/reader.h rapidjson/writer.h rapidjson/pointer.h rapidjson/schema.h
        rapidjson/encodings.h rapidjson/allocators.h rapidjson/stringbuffer.h
        gtest/gtest.h gtest/gtest-matchers.h gtest/gtest-printers.h gtest/gtest-message.h gtest/gtest-test-part.h
        gmock/gmock-actions.h gmock/gmock-spec-builders.h gmock/gmock-cardinalities.h
        nlohmann/json.hpp nlohmann/adl_serializer.hpp nlohmann/ordered_map.hpp
        unicode/unistr.h unicode/brkiter.h unicode/calendar.h unicode/locid.h unicode/uniset.h unicode/decimfmt.h
        unicode/regex.h unicode/bytestrie.h unicode/umutablecptrie.h unicode/stringpiece.h
        yaml-cpp/node/node.h yaml-cpp/emitter.h yaml-cpp/parser.h yaml-cpp/exceptions.h yaml-cpp/emitterstyle.h
        leveldb/db.h leveldb/options.h leveldb/slice.h leveldb/status.h leveldb/env.h leveldb/iterator.h
        absl/strings/string_view.h absl/strings/str_cat.h absl/strings/cord.h absl/time/time.h absl/status/status.h
        absl/types/optional.h absl/container/flat_hash_map.h absl/synchronization/mutex.h absl/types/span.h
        pugixml.hpp tinyxml2.h spdlog/logger.h spdlog/common.h spdlog/pattern_formatter.h spdlog/sinks/basic_file_sink.h
        benchmark/benchmark.h z3++.h gmpxx.h snappy.h catch2/catch.hpp""".split() +
    ["google/protobuf/%s.h" % name for name in PROTOBUF.split()],
    "-I/usr/include/bullet": ["bullet/" + name for name in """LinearMath/btVector3.h LinearMath/btMatrix3x3.h
        LinearMath/btTransform.h LinearMath/btQuaternion.h LinearMath/btAlignedObjectArray.h LinearMath/btSerializer.h
        BulletCollision/BroadphaseCollision/btDbvt.h BulletCollision/CollisionDispatch/btCollisionObject.h
        BulletDynamics/Dynamics/btRigidBody.h BulletSoftBody/btSoftBody.h""".split()],
    "-I/usr/include/jsoncpp": ["jsoncpp/json/" + name for name in "value.h reader.h writer.h".split()],
    "-I/usr/include/eigen3": ["eigen3/Eigen/src/Core/%s.h|Eigen/Core" % name for name in (
        "Matrix DenseBase MatrixBase PlainObjectBase Map Block").split()] + ["eigen3/Eigen/src/Geometry/Quaternion.h|Eigen/Geometry"],
    "-I/usr/include/llvm-14,-I/usr/include/llvm-c-14": ["llvm-14/llvm/" + name for name in (
        "ADT/StringRef.h ADT/SmallVector.h ADT/ArrayRef.h IR/Function.h Support/raw_ostream.h").split()]}


def glib_headers():
    folder = "/usr/include/glib-2.0/glib"
    names = sorted(os.listdir(folder)) if os.path.isdir(folder) else []
    return ["%s/%s|glib.h:%s" % (folder, name, GLIB_OPTIONS) for name in names if name.endswith(".h")]


def c_headers():
    return C_HEADERS + glib_headers()


def cxx_headers():
    return [name + ":" + options for options, names in CXX_GROUPS.items() for name in names]


def find(name):
    for folder in ("", "/usr/include", "/usr/include/x86_64-linux-gnu", "/usr/include/libxml2"):
        path = os.path.join(folder, name)
        if os.path.isfile(path):
            return path
    return None
