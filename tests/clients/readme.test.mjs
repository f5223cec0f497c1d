// The example of the README, as it stands there.
import assert from 'node:assert/strict';
import { spawn } from 'node:child_process';
import { once } from 'node:events';
import { readFileSync, rmSync, writeFileSync } from 'node:fs';
import { test } from 'node:test';

import { withPhone } from './phone.mjs';

const port = 'port: 8100';

test('the example writes its note', () => withPhone({}, async (phone) => {
    const [, example] = readFileSync(process.env.README, 'utf8').match(/```js\n(import .*?)```/s);
    assert.ok(example.includes(port));
    writeFileSync('readme-example.mjs', example.replace(port, `port: ${phone.port}`));
    try {
        const run = spawn(process.execPath, ['readme-example.mjs'], { stdio: ['ignore', 'ignore', 'inherit'] });
        assert.deepEqual(await once(run, 'exit'), [0, null]);
    } finally {
        rmSync('readme-example.mjs');
    }
    assert.deepEqual(phone.records().notes.map((note) => note.content), ['Call back on Monday']);
}));
