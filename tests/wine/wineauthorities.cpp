// Makes certificate authorities of a program's own work under Wine, as they do on
// Windows. Qt hands them to PFXImportCertStore as PKCS#12 data without a private key,
// which Wine refuses. Qt's call is led to a function that reads such data itself.
//
// A generic plug-in: QT_QPA_GENERIC_PLUGINS=wineauthorities loads it into any program
// with a QGuiApplication. Nothing is done where there is no Wine.
#include <QGenericPlugin>

#include <openssl/pkcs12.h>

// Its names clash with those of OpenSSL, which undoes them when it comes second.
#include <windows.h>

#include <wincrypt.h>

#include <cstring>
#include <memory>

namespace {

using Import = HCERTSTORE(WINAPI *)(CRYPT_DATA_BLOB *, LPCWSTR, DWORD);
Import systemImport = nullptr;

void freeSafes(STACK_OF(PKCS7) * safes)
{
    sk_PKCS7_pop_free(safes, PKCS7_free);
}

void freeBags(STACK_OF(PKCS12_SAFEBAG) * bags)
{
    sk_PKCS12_SAFEBAG_pop_free(bags, PKCS12_SAFEBAG_free);
}

bool addCertificate(HCERTSTORE store, const PKCS12_SAFEBAG *bag)
{
    const std::unique_ptr<X509, decltype(&X509_free)> certificate(PKCS12_SAFEBAG_get1_cert(bag),
                                                                  X509_free);
    unsigned char *bytes = nullptr;
    const int length = certificate ? i2d_X509(certificate.get(), &bytes) : -1;
    if (length < 0)
        return false;
    const BOOL added = CertAddEncodedCertificateToStore(
        store, X509_ASN_ENCODING, bytes, DWORD(length), CERT_STORE_ADD_ALWAYS, nullptr);
    OPENSSL_free(bytes);
    return added;
}

// The certificates of data that are not encrypted.
bool addCertificates(HCERTSTORE store, const CRYPT_DATA_BLOB &data)
{
    const unsigned char *at = data.pbData;
    const std::unique_ptr<PKCS12, decltype(&PKCS12_free)> file(
        d2i_PKCS12(nullptr, &at, long(data.cbData)), PKCS12_free);
    if (!file)
        return false;
    const std::unique_ptr<STACK_OF(PKCS7), decltype(&freeSafes)> safes(
        PKCS12_unpack_authsafes(file.get()), freeSafes);
    for (int i = 0; safes && i < sk_PKCS7_num(safes.get()); ++i) {
        PKCS7 *const safe = sk_PKCS7_value(safes.get(), i);
        if (OBJ_obj2nid(safe->type) != NID_pkcs7_data)
            return false;
        const std::unique_ptr<STACK_OF(PKCS12_SAFEBAG), decltype(&freeBags)> bags(
            PKCS12_unpack_p7data(safe), freeBags);
        for (int j = 0; bags && j < sk_PKCS12_SAFEBAG_num(bags.get()); ++j) {
            const PKCS12_SAFEBAG *const bag = sk_PKCS12_SAFEBAG_value(bags.get(), j);
            if (PKCS12_SAFEBAG_get_nid(bag) != NID_certBag || !addCertificate(store, bag))
                return false;
        }
    }
    return safes != nullptr;
}

HCERTSTORE WINAPI import(CRYPT_DATA_BLOB *data, LPCWSTR password, DWORD flags)
{
    if (const HCERTSTORE store = systemImport(data, password, flags))
        return store;
    const DWORD error = GetLastError();
    const HCERTSTORE store = CertOpenStore(CERT_STORE_PROV_MEMORY, 0, 0, 0, nullptr);
    if (store && addCertificates(store, *data))
        return store;
    if (store)
        CertCloseStore(store, 0);
    SetLastError(error);
    return nullptr;
}

// The place from which a module calls a function of another module.
Import *importOf(HMODULE module, const char *function)
{
    auto *const base = reinterpret_cast<unsigned char *>(module);
    const auto *dos = reinterpret_cast<const IMAGE_DOS_HEADER *>(base);
    const auto *headers = reinterpret_cast<const IMAGE_NT_HEADERS *>(base + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY &table =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    if (table.VirtualAddress == 0)
        return nullptr;
    const auto *from =
        reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR *>(base + table.VirtualAddress);
    for (; from->OriginalFirstThunk != 0; ++from) {
        const auto *name =
            reinterpret_cast<const IMAGE_THUNK_DATA *>(base + from->OriginalFirstThunk);
        auto *entry = reinterpret_cast<IMAGE_THUNK_DATA *>(base + from->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++entry) {
            if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal))
                continue;
            const auto *imported =
                reinterpret_cast<const IMAGE_IMPORT_BY_NAME *>(base + name->u1.AddressOfData);
            if (std::strcmp(imported->Name, function) == 0)
                return reinterpret_cast<Import *>(&entry->u1.Function);
        }
    }
    return nullptr;
}

bool isWine()
{
    const HMODULE system = GetModuleHandleW(L"ntdll.dll");
    return system && GetProcAddress(system, "wine_get_version");
}

void redirectImport()
{
    const HMODULE network = GetModuleHandleW(L"Qt5Network.dll");
    Import *const place = network ? importOf(network, "PFXImportCertStore") : nullptr;
    DWORD protection = 0;
    if (!place || *place == import ||
        !VirtualProtect(place, sizeof *place, PAGE_READWRITE, &protection))
        return;
    systemImport = *place;
    *place = import;
    VirtualProtect(place, sizeof *place, protection, &protection);
}

} // namespace

class WineAuthorities : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "wineauthorities.json")

public:
    QObject *create(const QString &, const QString &) override
    {
        if (isWine())
            redirectImport();
        return new QObject; // what Qt takes for success, and deletes
    }
};

#include "wineauthorities.moc"
