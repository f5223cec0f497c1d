// A phone of the test's own: its root folder, its server, and what it has recorded.
import { execFileSync, spawn } from 'node:child_process';
import { mkdtempSync, rmSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { createInterface } from 'node:readline';

/// Milliseconds; a build with sanitizers on a busy machine takes its time.
export const patience = 60000;

/// The path of the program, from whoever runs the tests.
const executable = process.env.PHONE;

/// Serves a new phone while `body` runs. `options` are those of `phone serve`: {device: 'ipad'}.
export async function withPhone(options, body) {
    const root = mkdtempSync(join(tmpdir(), 'phone-client-'));
    try {
        execFileSync(executable, ['new', '--root', root]);
        await whileServed(root, options, async (port) => body({
            port,
            records: () => JSON.parse(execFileSync(executable, ['records', '--root', root, '--json'])),
        }));
    } finally {
        rmSync(root, { recursive: true });
    }
}

async function whileServed(root, options, body) {
    const words = Object.entries({ zone: 'Europe/Berlin', ...options }).flatMap(([name, value]) => [`--${name}`, value]);
    const server = spawn(executable, ['serve', '--root', root, '--port', '0', ...words],
                         { stdio: ['ignore', 'pipe', 'inherit'] });
    const ended = new Promise((resolve) => server.once('exit', resolve));
    try {
        await body(await portOf(server));
    } finally {
        server.kill();
        await ended;
    }
}

/// As the server prints it once it answers.
async function portOf(server) {
    for await (const line of createInterface({ input: server.stdout })) {
        const match = line.match(/^The phone is at http:\/\/127\.0\.0\.1:(\d+)$/);
        if (match) {
            return Number(match[1]);
        }
    }
    throw new Error('the phone does not serve');
}

/// From a phone as it was made to the share sheet over a call. `run` does a `mobile:` command by its name.
export async function openSheet(run) {
    await run('setClock', { localTime: '2026-03-05T14:37:12' });
    await run('setPreferences', { values: { SwitchCell1: false, SwitchCell2: false, SwitchCell3: false } });
    await run('gsmCall', { phoneNumber: '+49 89 5551234', action: 'call' });
    await run('gsmCall', { action: 'accept' });
    await run('tap', { x: 160, y: 50 });
}
