#include "tests/testing/win32/type_library_text.h"

#include "base/text.h"
#include "com/bstr.h"
#include "com/com_ptr.h"

namespace tillora::testing {

using win32::Bstr;
using win32::ComPtr;

namespace {

std::string guidText(const GUID& guid) {
  wchar_t text[40];
  const int length = StringFromGUID2(guid, text, 40);
  CharLowerBuffW(text, static_cast<DWORD>(length));
  return toUtf8(win32::fromWide(text));
}

std::string nameOf(ITypeInfo& info, MEMBERID member = MEMBERID_NIL) {
  Bstr name;
  info.GetDocumentation(member, name.out(), nullptr, nullptr, nullptr);
  return toUtf8(name.text());
}

std::string typeName(ITypeInfo& info, const TYPEDESC& type) {
  switch (type.vt) {
    case VT_VOID:
      return "void";
    case VT_HRESULT:
      return "HRESULT";
    case VT_BOOL:
      return "VARIANT_BOOL";
    case VT_UI1:
      return "unsigned char";
    case VT_I2:
      return "short";
    case VT_I4:
      return "long";
    case VT_R4:
      return "float";
    case VT_R8:
      return "double";
    case VT_CY:
      return "CURRENCY";
    case VT_DATE:
      return "DATE";
    case VT_BSTR:
      return "BSTR";
    case VT_VARIANT:
      return "VARIANT";
    case VT_DISPATCH:
      return "IDispatch*";
    case VT_UNKNOWN:
      return "IUnknown*";
    case VT_PTR:
      return typeName(info, *type.lptdesc) + "*";
    case VT_USERDEFINED: {
      ComPtr<ITypeInfo> referred;
      if (SUCCEEDED(info.GetRefTypeInfo(type.hreftype, referred.out()))) {
        return nameOf(*referred.get());
      }
      return "unknown";
    }
    default:
      return "vartype " + std::to_string(type.vt);
  }
}

std::string parameterText(ITypeInfo& info, const ELEMDESC& parameter, const Bstr& name) {
  std::string attributes;
  const auto add = [&](USHORT flag, const char* word) {
    if ((parameter.paramdesc.wParamFlags & flag) == 0) return;
    if (!attributes.empty()) attributes += ", ";
    attributes += word;
  };
  add(PARAMFLAG_FIN, "in");
  add(PARAMFLAG_FOUT, "out");
  add(PARAMFLAG_FRETVAL, "retval");
  add(PARAMFLAG_FOPT, "optional");
  const std::string type = "[" + attributes + "] " + typeName(info, parameter.tdesc);
  return name.text().empty() ? type : type + " " + toUtf8(name.text());
}

const char* kindOf(INVOKEKIND kind) {
  switch (kind) {
    case INVOKE_PROPERTYGET:
      return "propget";
    case INVOKE_PROPERTYPUT:
      return "propput";
    case INVOKE_PROPERTYPUTREF:
      return "propputref";
    default:
      return "method";
  }
}

class TypeText {
 public:
  explicit TypeText(ITypeInfo& info) : info_(info) { info_.GetTypeAttr(&attributes_); }
  ~TypeText() { info_.ReleaseTypeAttr(attributes_); }
  TypeText(const TypeText&) = delete;
  TypeText& operator=(const TypeText&) = delete;

  std::string whole() {
    line(std::string(typeKind()) + " " + nameOf(info_) + " " + guidText(attributes_->guid) +
         flags());
    help(MEMBERID_NIL);
    for (UINT index = 0; index < attributes_->cImplTypes; ++index) implemented(index);
    for (UINT index = 0; index < attributes_->cVars; ++index) constant(index);
    if (isDual()) {
      // The described dispatch interface has another one behind it, with the places of its members.
      HREFTYPE reference = 0;
      ComPtr<ITypeInfo> vtable;
      if (SUCCEEDED(info_.GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)) &&
          SUCCEEDED(info_.GetRefTypeInfo(reference, vtable.out()))) {
        return text_ + TypeText(*vtable.get()).members();
      }
    }
    return text_ + members();
  }

 private:
  bool isDual() const { return (attributes_->wTypeFlags & TYPEFLAG_FDUAL) != 0; }

  std::string members() {
    std::string text;
    text.swap(text_);
    for (UINT index = 0; index < attributes_->cFuncs; ++index) function(index);
    text.swap(text_);
    return text;
  }

  void line(const std::string& text) { text_ += text + "\n"; }

  const char* typeKind() const {
    switch (attributes_->typekind) {
      case TKIND_ENUM:
        return "enum";
      case TKIND_COCLASS:
        return "coclass";
      case TKIND_DISPATCH:
        return isDual() ? "interface" : "dispinterface";
      case TKIND_INTERFACE:
        return "interface";
      default:
        return "type";
    }
  }

  std::string flags() const {
    std::string words;
    const auto add = [&](WORD flag, const char* word) {
      if ((attributes_->wTypeFlags & flag) != 0) words += std::string(" ") + word;
    };
    add(TYPEFLAG_FDUAL, "dual");
    add(TYPEFLAG_FOLEAUTOMATION, "oleautomation");
    add(TYPEFLAG_FNONEXTENSIBLE, "nonextensible");
    add(TYPEFLAG_FCANCREATE, "creatable");
    add(TYPEFLAG_FHIDDEN, "hidden");
    return words;
  }

  void help(MEMBERID member) {
    Bstr text;
    info_.GetDocumentation(member, nullptr, text.out(), nullptr, nullptr);
    if (!text.text().empty()) line("      \"" + toUtf8(text.text()) + "\"");
  }

  void implemented(UINT index) {
    if (attributes_->typekind != TKIND_COCLASS) return;
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> type;
    INT kinds = 0;
    info_.GetImplTypeFlags(index, &kinds);
    info_.GetRefTypeOfImplType(index, &reference);
    info_.GetRefTypeInfo(reference, type.out());
    line(std::string("  ") + ((kinds & IMPLTYPEFLAG_FDEFAULT) != 0 ? "default " : "") +
         ((kinds & IMPLTYPEFLAG_FSOURCE) != 0 ? "raises " : "implements ") + nameOf(*type.get()));
  }

  void constant(UINT index) {
    VARDESC* variable = nullptr;
    if (FAILED(info_.GetVarDesc(index, &variable))) return;
    if (variable->varkind == VAR_CONST) {
      line("  constant " + nameOf(info_, variable->memid) + " = " +
           std::to_string(variable->lpvarValue->lVal));
    }
    info_.ReleaseVarDesc(variable);
  }

  void function(UINT index) {
    FUNCDESC* function = nullptr;
    if (FAILED(info_.GetFuncDesc(index, &function))) return;
    // The members of IUnknown and IDispatch, which some descriptions repeat, are not the library's.
    if ((function->wFuncFlags & FUNCFLAG_FRESTRICTED) == 0 && function->memid < 0x60000000) {
      line("  " + signature(*function) + ", id " + std::to_string(function->memid) +
           place(*function));
      help(function->memid);
    }
    info_.ReleaseFuncDesc(function);
  }

  std::string signature(const FUNCDESC& function) {
    std::vector<Bstr> names(static_cast<std::size_t>(function.cParams) + 1);
    std::vector<BSTR> given(names.size());
    UINT found = 0;
    info_.GetNames(function.memid, given.data(), static_cast<UINT>(given.size()), &found);
    for (UINT index = 0; index < found; ++index) *names[index].out() = given[index];
    // The new value of a property that can only be put has no name in a type library.
    std::string parameters;
    for (SHORT index = 0; index < function.cParams; ++index) {
      if (index > 0) parameters += ", ";
      parameters += parameterText(info_, function.lprgelemdescParam[index],
                                  names[static_cast<std::size_t>(index) + 1]);
    }
    const std::string result = typeName(info_, function.elemdescFunc.tdesc);
    return std::string(kindOf(function.invkind)) + " " + nameOf(info_, function.memid) + "(" +
           parameters + ")" + (result == "void" ? "" : " as " + result);
  }

  std::string place(const FUNCDESC& function) const {
    if (function.funckind == FUNC_DISPATCH) return "";
    return ", vtable " + std::to_string(static_cast<unsigned>(function.oVft) / sizeof(void*));
  }

  ITypeInfo& info_;
  TYPEATTR* attributes_ = nullptr;
  std::string text_;
};

}  // namespace

std::string typeLibraryText(ITypeLib& library) {
  Bstr name;
  Bstr help;
  library.GetDocumentation(-1, name.out(), help.out(), nullptr, nullptr);
  TLIBATTR* attributes = nullptr;
  library.GetLibAttr(&attributes);
  std::string text = "library " + toUtf8(name.text()) + " " + guidText(attributes->guid) +
                     " version " + std::to_string(attributes->wMajorVerNum) + "." +
                     std::to_string(attributes->wMinorVerNum) + "\n      \"" + toUtf8(help.text()) +
                     "\"\n";
  library.ReleaseTLibAttr(attributes);
  for (UINT index = 0; index < library.GetTypeInfoCount(); ++index) {
    ComPtr<ITypeInfo> info;
    if (FAILED(library.GetTypeInfo(index, info.out()))) continue;
    text += "\n" + TypeText(*info.get()).whole();
  }
  return text;
}

}  // namespace tillora::testing
