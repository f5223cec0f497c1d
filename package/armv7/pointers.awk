# Rewrites the pointers that the linker for armv7 gets wrong. Reads assembly, writes the file named by the variable
# `out`.
#
# An object's non-lazy symbol pointers it leaves at zero: they become plain pointers, which it binds; each under a name
# of its own, or it takes the first for all.
/\$non_lazy_ptr/ { $0 = named($0) }
/^\t\.section\t__DATA,__nl_symbol_ptr,non_lazy_symbol_pointers$/ { print "\t.section\t__DATA,__pointers" >out; next }
/^\t\.indirect_symbol\t/ { print "\t.long\t" $2 >out; placeholder = 1; next }
placeholder && /^\t\.long\t0$/ { placeholder = 0; next }

# To a pointer to a Thumb function that other objects may see it adds the lowest bit, which the assembler has set
# already: what copies and destroys a block's captures, all that is pointed to in that way, stays the object's own.
/^\t\.(globl|private_extern|weak_definition|weak_def_can_be_hidden)\t___(copy|destroy)_helper_block_/ { next }

{ print >out }

# The assembler's own label, which no object holds, as one that lives until the link.
function named(line) {
    while (match(line, /(^|[^A-Za-z0-9_])L[A-Za-z0-9_.]*\$non_lazy_ptr/)) {
        start = RSTART + (substr(line, RSTART, 1) != "L")
        line = substr(line, 1, start - 1) "l" substr(line, start + 1)
    }
    return line
}
