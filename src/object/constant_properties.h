// Included in the middle of a class, just before its list: each line becomes a get and a let.
// No include guard: one use per class. Names are pasted, never passed on: some are macros of the platform.
#define PROPERTY_Text BSTR
#define PROPERTY_Byte BYTE
#define PROPERTY_Integer short
#define PROPERTY_Long long
#define PROPERTY_Boolean VARIANT_BOOL

#define CONSTANT(dispid, type, name, value, help)                                     \
  HRESULT STDMETHODCALLTYPE get_##name(PROPERTY_##type* Resultat) noexcept override { \
    return read_constant(constants_.m_##name, Resultat);                              \
  }                                                                                   \
  HRESULT STDMETHODCALLTYPE put_##name(PROPERTY_##type Valeur) noexcept override {    \
    return write_constant(constants_.m_##name, Valeur);                               \
  }
