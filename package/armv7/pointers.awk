# Turns an object's non-lazy symbol pointers, which the linker for armv7 leaves at zero, into plain pointers, which it
# binds. Reads assembly, writes the file named by the variable `out`.
/^\t\.section\t__DATA,__nl_symbol_ptr,non_lazy_symbol_pointers$/ { print "\t.section\t__DATA,__pointers" >out; next }
/^\t\.indirect_symbol\t/ { print "\t.long\t" $2 >out; placeholder = 1; next }
placeholder && /^\t\.long\t0$/ { placeholder = 0; next }
{ print >out }
