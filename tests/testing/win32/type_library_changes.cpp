#include <algorithm>
#include <set>
#include <sstream>

#include "tests/testing/win32/type_library_text.h"

namespace tillora::testing {

namespace {

struct Member {
  std::string key;  // kind and name; a property has a getter and a setter
  std::string signature;
  std::string id;
  std::string place;
  bool hasHelp = false;
};

struct Type {
  std::string kind;
  std::string name;
  std::string guid;
  std::string flags;
  std::vector<Member> members;
  bool hasHelp = false;
};

struct Library {
  std::vector<Type> types;
  std::set<std::string> events;  // interfaces that a class of the component raises
};

/// Cuts off and returns what follows the last `mark`; empty for none.
std::string cutAfter(std::string& text, const std::string& mark) {
  const auto found = text.rfind(mark);
  if (found == std::string::npos) return "";
  std::string rest = text.substr(found + mark.size());
  text.erase(found);
  return rest;
}

Member readMember(std::string line) {
  Member member;
  member.place = cutAfter(line, ", vtable ");
  member.id = cutAfter(line, ", id ");
  member.signature = line;
  member.key = line.substr(0, std::min(line.find('('), line.find(" = ")));
  return member;
}

Library read(const std::string& text) {
  Library library;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty()) continue;
    if (line.starts_with("      \"")) {
      Type& type = library.types.back();
      (type.members.empty() ? type.hasHelp : type.members.back().hasHelp) = true;
    } else if (line.starts_with("  ")) {
      library.types.back().members.push_back(readMember(line.substr(2)));
      const std::string& key = library.types.back().members.back().key;
      if (const auto raises = key.find("raises "); raises != std::string::npos) {
        library.events.insert(key.substr(raises + 7));
      }
    } else {
      Type type;
      std::istringstream words(line);
      words >> type.kind >> type.name >> type.guid;
      std::getline(words, type.flags);
      library.types.push_back(type);
    }
  }
  return library;
}

/// The consequences of a change depend on who calls whom.
enum class Role { component, event, host, constants, other };

Role roleOf(const Type& type, const Library& library) {
  if (type.kind == "interface") return Role::component;
  if (type.kind == "enum") return Role::constants;
  if (type.kind != "dispinterface") return Role::other;
  return library.events.contains(type.name) ? Role::event : Role::host;
}

const char* whenGone(Role role) {
  switch (role) {
    case Role::component:
      return "scripts that use it fail with an unknown name, compiled hosts call whatever stands "
             "in "
             "its place";
    case Role::event:
      return "hosts that listen are not called any more";
    case Role::host:
      return "hosts still offer it and wait in vain to be asked for it";
    case Role::constants:
      return "hosts that name it compile no more";
    default:
      return "hosts that rely on it fail";
  }
}

const char* whenNew(Role role) {
  switch (role) {
    case Role::component:
      return "a host built with it crashes or fails in a shop that has the former library under "
             "the "
             "same id; a new member belongs into a new interface";
    case Role::event:
      return "hosts that listen get a number that they do not know";
    case Role::host:
      return "hosts written before lack it; the component must do without it there";
    case Role::constants:
      return "hosts written before ignore it";
    default:
      return "hosts written before do not know of it";
  }
}

class Comparison {
 public:
  Comparison(const Library& before, const Library& now) : before_(before), now_(now) {}

  std::vector<std::string> lines() {
    for (const Type& was : before_.types) {
      const auto is = std::ranges::find(now_.types, was.name, &Type::name);
      if (is == now_.types.end()) {
        say(was.name, "",
            "is gone: hosts built with it compile no more, and its id is answered by "
            "nobody");
      } else {
        compare(was, *is);
      }
    }
    for (const Type& is : now_.types) {
      if (std::ranges::find(before_.types, is.name, &Type::name) == before_.types.end()) {
        say(is.name, "", "is new: nothing breaks, but from now on it is a promise");
      }
    }
    return std::move(lines_);
  }

 private:
  void say(const std::string& type, const std::string& member, const std::string& what) {
    lines_.push_back(type + (member.empty() ? "" : "." + member) + " " + what + ".");
  }
  void changed(const std::string& type, const std::string& member, const char* what,
               const std::string& was, const std::string& is, const char* consequence) {
    if (was == is) return;
    say(type, member, std::string(what) + " was '" + was + "' and is '" + is + "': " + consequence);
  }

  void compare(const Type& was, const Type& is) {
    const std::size_t before = lines_.size();
    const Role role = roleOf(was, before_);
    changed(was.name, "", "as a type", was.kind, is.kind, "hosts that use it fail");
    changed(was.name, "", "by its id", was.guid, is.guid,
            was.kind == "library"   ? "references of host projects to the library are broken"
            : was.kind == "coclass" ? "hosts that create it by its id find no such class"
            : role == Role::host    ? "host objects that answer the former id are not recognised"
                                    : "hosts built before ask for the former id and are refused");
    changed(was.name, "", "in kind", was.flags, is.flags,
            "hosts bound in a way that is not supported any more fail");
    for (const Member& member : was.members) {
      const auto present = std::ranges::find(is.members, member.key, &Member::key);
      if (present == is.members.end()) {
        say(was.name, member.key, std::string("is gone: ") + whenGone(role));
      } else {
        compare(was, member, *present);
      }
    }
    for (const Member& member : is.members) {
      if (std::ranges::find(was.members, member.key, &Member::key) == was.members.end()) {
        say(was.name, member.key, std::string("is new: ") + whenNew(role));
      }
    }
    if (lines_.size() == before &&
        !std::ranges::equal(was.members, is.members, {}, &Member::key, &Member::key)) {
      say(was.name, "",
          "has its members in another order: wrappers that tools make from the library "
          "differ from the former ones");
    }
  }

  void compare(const Type& type, const Member& was, const Member& is) {
    changed(type.name, was.key, "by its signature", was.signature, is.signature,
            type.kind == "enum" ? "hosts test the former number and refresh the wrong thing"
                                : "hosts pass and expect what the former says");
    changed(type.name, was.key, "by its dispatch id", was.id, is.id,
            "hosts compiled with the former id reach another member or none");
    changed(type.name, was.key, "by its place in the vtable", was.place, is.place,
            "compiled hosts call another member in its place");
  }

  const Library& before_;
  const Library& now_;
  std::vector<std::string> lines_;
};

}  // namespace

std::vector<std::string> brokenPromises(const std::string& frozen, const std::string& present) {
  const Library before = read(frozen);
  const Library now = read(present);
  return Comparison(before, now).lines();
}

std::vector<std::string> withoutHelp(const std::string& text) {
  std::vector<std::string> names;
  for (const Type& type : read(text).types) {
    if (!type.hasHelp) names.push_back(type.name);
    if (type.kind == "enum" || type.kind == "coclass") continue;
    for (const Member& member : type.members) {
      if (!member.hasHelp) names.push_back(type.name + "." + member.key);
    }
  }
  return names;
}

}  // namespace tillora::testing
